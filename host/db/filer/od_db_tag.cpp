#include "host/db/filer/od_db_tag.h"

namespace {

OdDbTag tagOf(int code, OdDbTagKind kind)
{
    OdDbTag tag;
    tag.code = static_cast<std::int16_t>(code);
    tag.kind = kind;
    return tag;
}

} // namespace

OdDbTag OdDbTag::ofText(int code, std::string_view value)
{
    OdDbTag tag = tagOf(code, OdDbTagKind::kText);
    tag.text = value;
    return tag;
}

OdDbTag OdDbTag::ofReal(int code, double value)
{
    OdDbTag tag = tagOf(code, OdDbTagKind::kReal);
    tag.real = value;
    return tag;
}

OdDbTag OdDbTag::ofInteger(int code, std::int64_t value)
{
    OdDbTag tag = tagOf(code, OdDbTagKind::kInteger);
    tag.integer = value;
    return tag;
}

OdDbTag OdDbTag::ofHandle(int code, OdDbHandle value)
{
    OdDbTag tag = tagOf(code, OdDbTagKind::kHandle);
    tag.integer = static_cast<std::int64_t>(value.value());
    return tag;
}

OdDbTag OdDbTag::ofBinary(int code, std::string_view bytes)
{
    OdDbTag tag = tagOf(code, OdDbTagKind::kBinary);
    tag.text = bytes;
    return tag;
}
