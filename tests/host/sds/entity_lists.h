#pragma once

#include "host/db/filer/od_db_record_writer.h"
#include "host/db/od_db_database.h"
#include "host/db/od_dxf_code.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/sds/sds_entity.h"
#include "host/sds/sds_record.h"

#include <cppunit/extensions/HelperMacros.h>

#include <sstream>

// Lists of groups for tests of entity access, and what drawings hold as text.

/// A chain from lines such as "40 2.5", "10 1 2 0" (points; z may be left out) or "8 Walls", with the kinds of
/// values that group codes have; names of objects are handles.
inline ca::RbListPtr entityList(OdDbDatabase& database, std::string const& lines)
{
    ca::SdsChain chain;
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);) {
        std::istringstream in(line);
        short code = 0;
        in >> code >> std::ws;
        sds_resbuf* const node = ca::allocRb(code);
        std::string rest;
        switch (ca::restypeToResvalType(code)) {
        case RTSTR:
            std::getline(in, rest);
            ca::setRbString(*node, OdString::fromUtf8(rest).c_str());
            break;
        case RTREAL: in >> node->resval.rreal; break;
        case RT3DPOINT: in >> node->resval.rpoint[0] >> node->resval.rpoint[1] >> node->resval.rpoint[2]; break;
        case RTSHORT: in >> node->resval.rint; break;
        case RTENAME:
            in >> rest;
            std::ranges::copy(ca::nameOf(database.getOdDbObjectId(OdDbHandle(std::string_view(rest)))).words,
                              node->resval.rlname);
            break;
        default: in >> node->resval.rlong;
        }
        chain.append(node);
    }
    return chain.take();
}

/// The groups of a chain as such lines, handles and names as "#".
inline std::string shownGroups(sds_resbuf const* list)
{
    std::ostringstream out;
    for (sds_resbuf const* node = list; node; node = node->rbnext) {
        auto const& value = node->resval;
        out << node->restype << ' ';
        switch (ca::restypeToResvalType(node->restype)) {
        case RTSTR: out << (node->restype == 5 ? "#" : OdString(value.rstring).toUtf8()); break;
        case RTREAL: out << value.rreal; break;
        case RT3DPOINT: out << value.rpoint[0] << ' ' << value.rpoint[1] << ' ' << value.rpoint[2]; break;
        case RTSHORT: out << value.rint; break;
        case RTENAME: out << '#'; break;
        case RTLONG:
        case RTINT64: out << value.rlong; break;
        default: break;
        }
        out << '\n';
    }
    return out.str();
}

inline OdDbEntityPtr lastEntity(OdDbDatabase& database)
{
    auto const space = database.getModelSpaceId().open<OdDbBlockTableRecord>();
    return space->newIterator(false).entity(OdDb::kForWrite);
}
