#pragma once

#include <cstdarg>
#include <cstdint>

// Result buffers of the C programming interface. Nodes are made and freed through host/sds/ca_resbuf.h only.

using sds_real = double;
using sds_point = sds_real[3];
/// Name of an entity or of a selection set; both words zero name nothing.
using sds_name = std::int64_t[2];

/// Types of nodes beside the group codes of drawing files.
enum SdsResType : short
{
    RTNONE = 5000, ///< no value; ends a list of arguments
    RTREAL = 5001,
    RTPOINT = 5002, ///< 2D point
    RTSHORT = 5003,
    RTANG = 5004, ///< real, radians
    RTSTR = 5005,
    RTENAME = 5006,
    RTPICKS = 5007, ///< selection set name
    RTORINT = 5008, ///< orientation: real, radians
    RT3DPOINT = 5009,
    RTLONG = 5010,
    RTBINARY = 5014,
    RTLB = 5016,
    RTLE = 5017,
    RTDOTE = 5018,
    RTNIL = 5019,
    RTBINARYCHUNK = 5022,
    RTRESBUF = 5023, ///< nested list
    RTINT64 = 5031
};

/// Results of the functions of this interface.
enum SdsStatus : int
{
    RTNORM = 5100,
    RTERROR = -5001,
    RTCAN = -5002,
    RTREJ = -5003,
    RTFAIL = -5004,
    RTKWORD = -5005
};

struct sds_binary
{
    std::int32_t clen; ///< number of bytes
    unsigned char* buf;
};

/// One node of a list. The type says which member of the union holds the value; text, bytes and a nested list
/// belong to the node.
struct sds_resbuf
{
    union Value {
        sds_point rpoint; // the largest comes first: zeroing a union zeroes its first member
        sds_real rreal;
        short rint;
        wchar_t* rstring;
        std::int64_t rlong;
        sds_name rlname;
        sds_binary rbinary;
        sds_resbuf* rlist;
    };

    sds_resbuf* rbnext;
    short restype;
    Value resval;
};

/// A new list from pairs of type and value, ended by 0 or RTNONE. Types are those above or group codes. Values by
/// kind: real as double, short as int, long and 64-bit integer as std::int64_t, text as wchar_t const*, point as
/// double const* (two values for RTPOINT, else three), names as std::int64_t const*; brackets, dot and nil take
/// none. Null when memory is short, a type is unknown or takes a value that cannot be given so, a short does not
/// fit, or a point or name is a null pointer; also for no pair at all. A null text counts as an empty one.
sds_resbuf* sds_buildlist(int type, ...);
/// The same with the pairs after the first type in `pairs`.
sds_resbuf* sds_vbuildlist(int type, std::va_list pairs);
