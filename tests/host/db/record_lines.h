#pragma once

#include "host/db/filer/od_db_tag_list.h"
#include "host/db/od_db_database.h"
#include "host/db/od_dxf_code.h"

#include <sstream>

/// Tags from lines such as "10 1.5" or "100 AcDbLine"; codes tell the kind of value.
inline OdDbTagList tagsOf(std::string const& lines)
{
    OdDbTagList tags;
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);) {
        std::size_t const blank = line.find(' ');
        int const code = std::stoi(line.substr(0, blank));
        std::string const value = line.substr(blank + 1);
        OdDxfCode::Type const type = OdDxfCode::_getType(code);
        if (OdDxfCode::isHandleText(type))
            tags.handle(code, OdDbHandle(std::string_view(value)));
        else if (type == OdDxfCode::kString || type == OdDxfCode::kComment)
            tags.text(code, std::string_view(value));
        else if (type == OdDxfCode::kReal || type == OdDxfCode::kAngle || type == OdDxfCode::kPoint)
            tags.real(code, std::stod(value));
        else
            tags.integer(code, std::stoll(value));
    }
    return tags;
}

inline std::string linesOf(OdDbTagList const& tags)
{
    std::ostringstream out;
    for (OdDbTag const tag : tags) {
        out << tag.code << ' ';
        switch (tag.kind) {
        case OdDbTagKind::kReal: out << tag.real; break;
        case OdDbTagKind::kInteger: out << tag.integer; break;
        case OdDbTagKind::kHandle: out << tag.handle().ascii().toUtf8(); break;
        default: out << tag.text;
        }
        out << '\n';
    }
    return out.str();
}

/// Handles and names as a drawing has them; handles that it does not have yet are kept for later.
class DatabaseResolver : public OdDbReferenceResolver
{
public:
    explicit DatabaseResolver(OdDbDatabase& database) : m_database(database) {}
    OdDbObjectId byName(OdDbTableKind table, std::string_view name) override
    {
        return m_database.table(table).getAt(OdString::fromUtf8(name));
    }
    OdDbObjectId byHandle(OdDbHandle handle) override { return m_database.getOdDbObjectId(handle, true); }

private:
    OdDbDatabase& m_database;
};
