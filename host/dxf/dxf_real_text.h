#pragma once

namespace dxf {

/// Bytes that a real needs at most.
inline constexpr int kLongestReal = 400;

/// Writes a finite real as text files hold it, the shortest digits that read back as the same bits: plain decimals
/// where people expect them, and always with a point, since some readers take a number without one for an integer.
/// Returns the end.
char* putReal(char* at, double value);

} // namespace dxf
