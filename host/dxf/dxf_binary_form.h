#pragma once

#include "host/db/od_dxf_code.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

// How tags stand in binary files: a group code of one byte (before R13) or two, then the value in the form that
// the code demands. Numbers are little-endian.

namespace dxf {

/// What binary files begin with.
inline constexpr std::string_view kBinarySentinel{"AutoCAD Binary DXF\r\n\x1A\0", 22};

/// Where group codes have one byte: this one says that a code of two bytes follows.
inline constexpr int kLongCodeMark = 255;

inline constexpr int kFirstBinaryCode = -5;
inline constexpr int kLastBinaryCode = 1071;
constexpr bool isBinaryCode(int code)
{
    return code >= kFirstBinaryCode && code <= kLastBinaryCode;
}

/// Bytes of a binary value that one tag holds when it is written; readers of limited means know no longer ones.
inline constexpr std::size_t kLongestChunk = 127;

enum class EBinaryForm : std::uint8_t
{
    kText,   ///< up to a NUL
    kHandle, ///< hexadecimal digits up to a NUL
    kReal,   ///< 8 bytes
    kInt8,   ///< without sign
    kInt16,
    kInt32,
    kInt64,
    kBytes ///< their number in one byte, the bytes
};

constexpr EBinaryForm binaryFormOf(OdDxfCode::Type type)
{
    switch (type) {
    case OdDxfCode::kReal:
    case OdDxfCode::kAngle:
    case OdDxfCode::kPoint: return EBinaryForm::kReal;
    case OdDxfCode::kBool: return EBinaryForm::kInt8;
    case OdDxfCode::kInt16: return EBinaryForm::kInt16;
    case OdDxfCode::kInt32: return EBinaryForm::kInt32;
    case OdDxfCode::kInt64: return EBinaryForm::kInt64;
    case OdDxfCode::kBinary: return EBinaryForm::kBytes;
    default: return OdDxfCode::isHandleText(type) ? EBinaryForm::kHandle : EBinaryForm::kText;
    }
}

} // namespace dxf
