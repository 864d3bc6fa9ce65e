#include "host/dxf/dxf_content_kind.h"

#include "host/dxf/dxf_binary_form.h"

#include <algorithm>

namespace dxf {

namespace {

struct Signature
{
    std::string_view bytes;
    EContentKind kind;
};

constexpr Signature s_signatures[] = {
    {kBinarySentinel, EContentKind::kBinary},
    {"AC10", EContentKind::kDwg},
    {"\xFF\xFE", EContentKind::kUtf16},
    {"\xFE\xFF", EContentKind::kUtf16},
};

bool isBlank(char ch)
{
    return ch == ' ' || ch == '\t' || ch == '\r' || ch == '\n';
}

/// Every text drawing begins with a section (group 0) or a comment (group 999).
bool beginsWithTag(std::string_view bytes)
{
    std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
    while (!line.empty() && isBlank(line.front()))
        line.remove_prefix(1);
    while (!line.empty() && isBlank(line.back()))
        line.remove_suffix(1);
    return line == "0" || line == "999";
}

} // namespace

EContentKind contentKindOf(std::string_view bytes)
{
    for (Signature const& signature : s_signatures)
        if (bytes.starts_with(signature.bytes))
            return signature.kind;
    if (bytes.starts_with(kUtf8Mark))
        bytes.remove_prefix(kUtf8Mark.size());
    if (std::all_of(bytes.begin(), bytes.end(), isBlank))
        return EContentKind::kEmpty;
    return beginsWithTag(bytes) ? EContentKind::kText : EContentKind::kOther;
}

} // namespace dxf
