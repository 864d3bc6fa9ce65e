#pragma once

#include "host/dxf/dxf_file.h"
#include "tests/host/dxf/dxf_text.h"

#include <algorithm>
#include <cppunit/extensions/HelperMacros.h>

/// What older releases hold of a drawing, for tests.
namespace loweredText {

struct Lowered
{
    std::string text;
    dxf::SaveReport report;

    /// The first object that a note is about; fails without such a note.
    std::string told(std::wstring_view note) const
    {
        for (dxf::SaveNote const& each : report.notes())
            if (each.text.str() == note)
                return each.first.ascii().toUtf8() + " x" + std::to_string(each.count);
        std::string all;
        for (dxf::SaveNote const& each : report.notes())
            all += '\n' + each.text.toUtf8();
        CPPUNIT_FAIL("nothing is told of this, only of" + all);
        return {};
    }
    bool tellsOf(std::wstring_view part) const
    {
        return std::any_of(report.notes().begin(), report.notes().end(), [part](dxf::SaveNote const& note) {
            return note.text.str().find(part) != std::wstring::npos;
        });
    }
    bool has(std::string const& part) const { return text.find(part) != std::string::npos; }
    /// Codes and values between two places of the file, on one line.
    std::string between(std::string const& from, std::string const& to) const
    {
        std::size_t const begin = text.find(from);
        std::size_t const end = begin == std::string::npos ? begin : text.find(to, begin);
        CPPUNIT_ASSERT_MESSAGE(from + " ... " + to + " is missing", end != std::string::npos);
        std::string part = text.substr(begin, end - begin);
        part.erase(std::remove(part.begin(), part.end(), ' '), part.end());
        std::replace(part.begin(), part.end(), '\n', ' ');
        return part;
    }
};

inline Lowered lowered(OdDbDatabase const& database, dxf::ERelease release)
{
    Lowered result;
    result.text = dxf::writeBytes(database, {release, false}, &result.report);
    return result;
}

/// Of a file of R2018 with these sections behind its header.
inline Lowered lowered(std::string const& sections, dxf::ERelease release)
{
    return lowered(*dxfText::read(dxfText::header("AC1032") + sections + "0\nEOF\n"), release);
}

inline Lowered loweredEntities(std::string const& entities, dxf::ERelease release)
{
    return lowered(dxfText::section("ENTITIES", entities), release);
}

/// An entity of a current file on layer 0.
inline std::string entity(std::string const& type, std::string const& handle, std::string const& content)
{
    return "0\n" + type + "\n5\n" + handle + "\n100\nAcDbEntity\n8\n0\n" + content;
}

} // namespace loweredText
