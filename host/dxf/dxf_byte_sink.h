#pragma once

#include "host/ut/ut_atomic_file.h"

#include <string>
#include <string_view>

namespace dxf {

/// Where the bytes of a drawing file go.
class ByteSink
{
public:
    virtual ~ByteSink() = default;
    virtual void write(std::string_view bytes) = 0;
};

class AtomicFileBytes final : public ByteSink
{
public:
    explicit AtomicFileBytes(ut::AtomicFile& file) : m_file(file) {}
    void write(std::string_view bytes) override { m_file.write(bytes); }

private:
    ut::AtomicFile& m_file;
};

class StringBytes final : public ByteSink
{
public:
    explicit StringBytes(std::string& target) : m_target(target) {}
    void write(std::string_view bytes) override { m_target += bytes; }

private:
    std::string& m_target;
};

} // namespace dxf
