#pragma once

#include "host/dxf/dxf_file.h"
#include "tests/support/temp_folder.h"

#include <string>

/// Texts of small drawings for tests.
namespace dxfText {

inline std::string section(std::string const& name, std::string const& content)
{
    return "0\nSECTION\n2\n" + name + "\n" + content + "0\nENDSEC\n";
}

inline std::string header(std::string const& release = "AC1015", std::string const& more = "")
{
    return section("HEADER", "9\n$ACADVER\n1\n" + release + "\n" + more);
}

/// A drawing of header and the sections given.
inline std::string drawing(std::string const& sections)
{
    return header() + sections + "0\nEOF\n";
}

/// A drawing with these entities.
inline std::string entities(std::string const& content)
{
    return drawing(section("ENTITIES", content));
}

inline OdDbDatabasePtr read(std::string const& text, dxf::ReadReport* report = nullptr)
{
    TempFolder const folder;
    return dxf::readFile(folder.write("a.dxf", text), report);
}

inline std::string written(OdDbDatabase const& database)
{
    TempFolder const folder;
    dxf::writeFile(database, folder / "a.dxf");
    return folder.read("a.dxf");
}

/// What becomes of a drawing that is opened and saved.
inline std::string resaved(std::string const& text)
{
    return written(*read(text));
}

} // namespace dxfText
