#pragma once

#include "host/app/sys_var.h"

namespace oa {

/// System variables by name, for programs: static getNAME(doc) and setNAME(value, doc). Without a document the
/// current one is meant, where a document matters at all. A setter is false and changes nothing for a value out of
/// range and without a document; a getter gives the default then. For variables that are found by name at run time
/// see ca::SysVar, the table of which says ranges and defaults.
class SysVars
{
    template <class T>
    static T get(ca::SysVar const& variable, ca::CaDoc const* doc);
    template <class T>
    static bool set(ca::SysVar const& variable, T const& value, ca::CaDoc* doc);
    /// Throws OdError(eKeyNotFound).
    static ca::SysVar const& byName(wchar_t const* name);

#define OA_SYS_VAR_GETTER(Type, NAME)                                                                             \
    static Type get##NAME(ca::CaDoc const* doc = nullptr)                                                         \
    {                                                                                                             \
        static ca::SysVar const& s_variable = byName(L## #NAME);                                                  \
        return get<Type>(s_variable, doc);                                                                        \
    }
#define OA_SYS_VAR(Type, NAME)                                                                                    \
    OA_SYS_VAR_GETTER(Type, NAME)                                                                                 \
    static bool set##NAME(Type const& value, ca::CaDoc* doc = nullptr)                                            \
    {                                                                                                             \
        static ca::SysVar const& s_variable = byName(L## #NAME);                                                  \
        return set<Type>(s_variable, value, doc);                                                                 \
    }

public:
    // clang-format off
    OA_SYS_VAR_GETTER(OdString, LASTPROMPT)
    OA_SYS_VAR(OdString,    SRCHPATH)
    OA_SYS_VAR(int,         MTFLAGS)
    OA_SYS_VAR(short,       AUTOCOMPLETEMODE)
    OA_SYS_VAR(short,       OSMODE)
    OA_SYS_VAR(int,         3DOSMODE)
    OA_SYS_VAR(short,       AUTOSNAP)
    OA_SYS_VAR(short,       OSNAPCOORD)
    OA_SYS_VAR(double,      SNAPANG)
    OA_SYS_VAR(OdGePoint2d, SNAPBASE)
    OA_SYS_VAR(short,       SNAPISOPAIR)
    OA_SYS_VAR(bool,        SNAPMODE)
    OA_SYS_VAR(bool,        SNAPSTYL)
    OA_SYS_VAR(bool,        SNAPTYPE)
    OA_SYS_VAR(OdGePoint2d, SNAPUNIT)
    OA_SYS_VAR(bool,        GRIDMODE)
    OA_SYS_VAR(OdGePoint2d, GRIDUNIT)
    OA_SYS_VAR(double,      POLARDIST)
    OA_SYS_VAR(double,      POLARANG)
    OA_SYS_VAR(OdString,    POLARADDANG)
    OA_SYS_VAR(short,       POLARMODE)
    OA_SYS_VAR(short,       SORTENTS)
    OA_SYS_VAR(short,       WNDLMAIN)
    OA_SYS_VAR(OdGePoint2d, WNDSMAIN)
    OA_SYS_VAR(OdGePoint2d, WNDPMAIN)
    OA_SYS_VAR(bool,        WNDLSTAT)
    OA_SYS_VAR(bool,        WNDLSCRL)
    OA_SYS_VAR(short,       NAVVCUBEDISPLAY)
    // clang-format on

#undef OA_SYS_VAR
#undef OA_SYS_VAR_GETTER
};

} // namespace oa
