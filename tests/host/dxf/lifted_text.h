#pragma once

#include "host/dxf/dxf_text_source.h"
#include "host/dxf/older/dxf_lifting_source.h"

#include <cstdio>
#include <string>

/// What becomes of drawings of older releases before they are read.
namespace liftedText {

inline std::string valueOf(OdDbTag const& tag)
{
    char buffer[40];
    switch (tag.kind) {
    case OdDbTagKind::kReal: std::snprintf(buffer, sizeof buffer, "%g", tag.real); return buffer;
    case OdDbTagKind::kInteger: return std::to_string(tag.integer);
    case OdDbTagKind::kHandle: return "#" + tag.handle().ascii().toUtf8();
    default: return std::string(tag.text);
    }
}

/// A line for each tag: group code and value, handles with "#" in front.
inline std::string listing(dxf::TagSource& source)
{
    std::string lines;
    for (OdDbTag tag; source.next(tag);)
        lines += std::to_string(tag.code) + " " + valueOf(tag) + "\n";
    return lines;
}

/// `lines` holds a tag in each line, as listing() writes them; handles without "#".
inline std::string asFile(std::string const& lines)
{
    std::string bytes = lines;
    std::size_t lineBegin = 0;
    while (lineBegin < bytes.size()) {
        std::size_t const lineEnd = bytes.find('\n', lineBegin);
        bytes[bytes.find(' ', lineBegin)] = '\n';
        lineBegin = lineEnd + 1;
    }
    return bytes;
}

/// A source together with what it reads from.
class Source
{
public:
    Source(std::string const& lines, dxf::ERelease release)
        : m_bytes(asFile(lines)),
          m_decoder({}, dxf::ETextForm::kUtf8),
          m_source(L"a.dxf", std::make_unique<dxf::TextSource>(L"a.dxf", m_bytes, m_decoder), release)
    {
    }
    dxf::LiftingSource& operator*() { return m_source; }
    dxf::LiftingSource* operator->() { return &m_source; }

private:
    std::string m_bytes;
    dxf::TextDecoder m_decoder;
    dxf::LiftingSource m_source;
};

inline std::string const kHead = "0 SECTION\n2 ";
inline std::string const kEnd = "0 ENDSEC\n";

inline std::string section(std::string const& name, std::string const& lines)
{
    return kHead + name + "\n" + lines + kEnd;
}

/// What becomes of the lines in a section.
inline std::string lifted(std::string const& sectionName, std::string const& lines,
                          dxf::ERelease release = dxf::ERelease::kR12)
{
    Source source(section(sectionName, lines), release);
    std::string const all = listing(*source);
    std::size_t const begin = kHead.size() + sectionName.size() + 1;
    return all.substr(begin, all.size() - begin - kEnd.size());
}

} // namespace liftedText
