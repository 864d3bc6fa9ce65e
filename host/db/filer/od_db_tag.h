#pragma once

#include "host/db/od_db_handle.h"

#include <cstdint>
#include <string_view>

/// What kind of value a tag holds. The kind follows from the group code, except for damaged files.
enum class OdDbTagKind : std::uint8_t
{
    kText,
    kReal,
    kInteger,
    kHandle,
    kBinary
};

/// One group of a drawing file: a code and a value. Text and bytes are views into whatever holds the tag.
struct OdDbTag
{
    std::int16_t code = 0;
    OdDbTagKind kind = OdDbTagKind::kText;
    union {
        double real;
        std::int64_t integer; ///< also booleans and handles
    };
    std::string_view text; ///< UTF-8 text, or the bytes of a binary value

    OdDbTag() : integer(0) {}
    static OdDbTag ofText(int code, std::string_view value);
    static OdDbTag ofReal(int code, double value);
    static OdDbTag ofInteger(int code, std::int64_t value);
    static OdDbTag ofHandle(int code, OdDbHandle value);
    static OdDbTag ofBinary(int code, std::string_view bytes);

    OdDbHandle handle() const { return OdDbHandle(static_cast<std::uint64_t>(integer)); }
    bool is(int otherCode, std::string_view value) const { return code == otherCode && text == value; }
};

/// Where tags go: a text file, a binary file, a list in memory.
class OdDbTagSink
{
public:
    virtual ~OdDbTagSink() = default;
    virtual void put(OdDbTag const& tag) = 0;

    void text(int code, std::string_view value) { put(OdDbTag::ofText(code, value)); }
    void text(int code, OdString const& value) { put(OdDbTag::ofText(code, value.toUtf8())); }
    void real(int code, double value) { put(OdDbTag::ofReal(code, value)); }
    void integer(int code, std::int64_t value) { put(OdDbTag::ofInteger(code, value)); }
    void handle(int code, OdDbHandle value) { put(OdDbTag::ofHandle(code, value)); }
    void binary(int code, std::string_view bytes) { put(OdDbTag::ofBinary(code, bytes)); }
    /// Coordinates under code, code + 10, code + 20; a 2D point is given with count 2.
    void point(int code, double const* coordinates, int count)
    {
        for (int i = 0; i < count; ++i)
            real(code + 10 * i, coordinates[i]);
    }
};
