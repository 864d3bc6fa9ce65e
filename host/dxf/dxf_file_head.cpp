#include "host/dxf/dxf_file_head.h"

#include "host/dxf/dxf_tag_source.h"

namespace dxf {

namespace {

/// The values of the two variables; empty when the file does not begin with a header that has them.
struct HeadVariables
{
    std::string release;
    std::size_t releaseLine = 1;
    std::string codePage;
};

HeadVariables variablesOf(TagSource& source)
{
    HeadVariables found;
    OdDbTag tag;
    std::string variable;
    while (source.next(tag) && !tag.is(0, "ENDSEC") && !tag.is(0, "EOF")) {
        if (tag.code == 9) {
            variable = tag.text;
        } else if (variable == "$ACADVER" && tag.code == 1) {
            found.release = tag.text;
            found.releaseLine = source.line() + 1;
        } else if (variable == "$DWGCODEPAGE" && tag.code == 3) {
            found.codePage = tag.text;
        }
    }
    return found;
}

OdError notSupported(OdString const& path, std::size_t line, OdString const& reason)
{
    return OdError(eUnsupportedFormat,
                   odFormat(L"%ls:%lld: %ls", path.c_str(), static_cast<long long>(line), reason.c_str()));
}

} // namespace

FileHead readHead(OdString const& path, TagSource& source)
{
    HeadVariables const variables = variablesOf(source);
    if (variables.release.empty())
        throw notSupported(
            path, 1,
            L"The drawing does not name its release ($ACADVER), as those before R2000 may do; reading "
            L"them is not supported yet");
    Release const* const release = findRelease(variables.release);
    if (!release)
        source.fail(odFormat(L"\"%ls\" is not a known release of drawing files",
                             OdString::fromUtf8(variables.release).c_str()),
                    variables.releaseLine);
    if (!release->isSupported)
        throw notSupported(
            path, variables.releaseLine,
            odFormat(L"The drawing is of release %ls; reading releases before R2000 is not supported "
                     L"yet",
                     release->name));
    return {release, variables.codePage};
}

} // namespace dxf
