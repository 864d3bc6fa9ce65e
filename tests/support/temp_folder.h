#pragma once

#include "host/root/od_string.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>

/// A new empty folder for one test, removed with everything in it.
class TempFolder
{
public:
    TempFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "vorn-test-XXXXXX").string();
        if (!::mkdtemp(pattern.data()))
            throw std::runtime_error("cannot make a temporary folder");
        m_path = pattern;
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(TempFolder const&) = delete;
    TempFolder& operator=(TempFolder const&) = delete;

    std::filesystem::path const& path() const { return m_path; }
    /// Full path of a name in the folder.
    OdString operator/(std::string const& name) const { return OdString::fromUtf8((m_path / name).string()); }

    OdString write(std::string const& name, std::string const& content) const
    {
        std::ofstream(m_path / name, std::ios::binary) << content;
        return *this / name;
    }
    /// Throws for a file that does not exist, so that a missing one is not taken for an empty one.
    std::string read(std::string const& name) const
    {
        std::ifstream file(m_path / name, std::ios::binary);
        if (!file)
            throw std::runtime_error("cannot read " + (m_path / name).string());
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// Names of what is in the folder, hidden ones as well.
    std::set<std::string> names() const
    {
        std::set<std::string> result;
        for (auto const& entry : std::filesystem::directory_iterator(m_path))
            result.insert(entry.path().filename().string());
        return result;
    }

private:
    std::filesystem::path m_path;
};
