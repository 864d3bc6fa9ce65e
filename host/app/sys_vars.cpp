#include "host/app/sys_vars.h"

#include "host/root/od_error.h"

#include <type_traits>

namespace oa {

namespace {

/// The alternative of a variable's value that holds what programs see as T.
template <class T>
using Kept = std::conditional_t<std::is_integral_v<T>, int, T>;

} // namespace

ca::SysVar const& SysVars::byName(wchar_t const* name)
{
    ca::SysVar const* const variable = ca::SysVar::find(name);
    if (!variable)
        throw OdError(eKeyNotFound, odFormat(L"There is no system variable %ls", name));
    return *variable;
}

template <class T>
T SysVars::get(ca::SysVar const& variable, ca::CaDoc const* doc)
{
    return static_cast<T>(std::get<Kept<T>>(variable.value(doc)));
}

template <class T>
bool SysVars::set(ca::SysVar const& variable, T const& value, ca::CaDoc* doc)
{
    return variable.set(static_cast<Kept<T>>(value), doc);
}

template bool SysVars::get<bool>(ca::SysVar const&, ca::CaDoc const*);
template short SysVars::get<short>(ca::SysVar const&, ca::CaDoc const*);
template int SysVars::get<int>(ca::SysVar const&, ca::CaDoc const*);
template double SysVars::get<double>(ca::SysVar const&, ca::CaDoc const*);
template OdString SysVars::get<OdString>(ca::SysVar const&, ca::CaDoc const*);
template OdGePoint2d SysVars::get<OdGePoint2d>(ca::SysVar const&, ca::CaDoc const*);

template bool SysVars::set<bool>(ca::SysVar const&, bool const&, ca::CaDoc*);
template bool SysVars::set<short>(ca::SysVar const&, short const&, ca::CaDoc*);
template bool SysVars::set<int>(ca::SysVar const&, int const&, ca::CaDoc*);
template bool SysVars::set<double>(ca::SysVar const&, double const&, ca::CaDoc*);
template bool SysVars::set<OdString>(ca::SysVar const&, OdString const&, ca::CaDoc*);
template bool SysVars::set<OdGePoint2d>(ca::SysVar const&, OdGePoint2d const&, ca::CaDoc*);

} // namespace oa
