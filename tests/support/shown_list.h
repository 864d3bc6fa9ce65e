#pragma once

#include "host/sds/ca_resbuf.h"
#include "host/ut/ut_number.h"

#include <string>

/// One node on one line: brackets and dots as such, texts as <text>, whole numbers as 12, reals always with a
/// point or exponent, points as {x y z}, names as #first:second, bytes as [1 2].
inline std::string shownValue(sds_resbuf const& node)
{
    auto const real = [](double value) {
        std::string const digits = ut::formatRealShortest(value).toUtf8();
        return digits.find_first_of(".en") == std::string::npos ? digits + ".0" : digits;
    };
    sds_resbuf::Value const& value = node.resval;
    switch (ca::restypeToResvalType(node.restype)) {
    case RTLB: return "(";
    case RTLE: return ")";
    case RTDOTE: return ".";
    case RTNIL: return "nil";
    case RTSTR: return value.rstring ? "<" + odWideToUtf8(value.rstring) + ">" : "null";
    case RTREAL: return real(value.rreal);
    case RTLONG:
    case RTINT64: return std::to_string(value.rlong);
    case RTSHORT: return std::to_string(value.rint) + "s";
    case RTENAME: return "#" + std::to_string(value.rlname[0]) + ":" + std::to_string(value.rlname[1]);
    case RT3DPOINT:
        return "{" + real(value.rpoint[0]) + " " + real(value.rpoint[1]) + " " + real(value.rpoint[2]) + "}";
    case RTBINARY: {
        std::string bytes;
        for (int i = 0; i < value.rbinary.clen; ++i)
            bytes += (i > 0 ? " " : "") + std::to_string(value.rbinary.buf[i]);
        return "[" + bytes + "]";
    }
    default: return "type " + std::to_string(node.restype);
    }
}

/// The nodes of a list, separated by blanks; those of a chain of group codes as code=value.
inline std::string shownList(sds_resbuf const* list)
{
    std::string text;
    for (; list; list = list->rbnext) {
        bool const isGroup = list->restype < RTNONE;
        text +=
            (text.empty() ? "" : " ") + (isGroup ? std::to_string(list->restype) + "=" : "") + shownValue(*list);
    }
    return text;
}
