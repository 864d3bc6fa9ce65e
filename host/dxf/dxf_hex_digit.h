#pragma once

namespace dxf {

/// The value of a hexadecimal digit of either case, -1 for other characters.
constexpr int hexDigit(char ch)
{
    if (ch >= '0' && ch <= '9')
        return ch - '0';
    if (ch >= 'A' && ch <= 'F')
        return ch - 'A' + 10;
    if (ch >= 'a' && ch <= 'f')
        return ch - 'a' + 10;
    return -1;
}

} // namespace dxf
