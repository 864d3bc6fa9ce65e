#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace dxf {

/// Releases of the file format that differ in what files hold, from old to new.
enum class ERelease : std::uint8_t
{
    kR12, ///< also the few kinds of files before it, which are read like it
    kR13,
    kR14,
    kR2000,
    kR2004,
    kR2007,
    kR2010,
    kR2013,
    kR2018
};
inline constexpr ERelease kCurrentRelease = ERelease::kR2018;

/// A release as files and people name it.
struct Release
{
    std::string_view code; ///< value of $ACADVER
    wchar_t const* name;
    ERelease id;
};

/// Null for a code that is no release known here.
Release const* findRelease(std::string_view code);
/// Finds a release by its name, such as "R2000", or by its code, without regard to case; null for anything else.
Release const* findReleaseByName(std::string_view name);
/// How a release is written.
Release const& releaseOf(ERelease id);
/// The releases that can be written, from old to new.
std::span<Release const> writableReleases();

/// Text is UTF-8; in older releases it is in the code page of the file.
constexpr bool isUtf8(ERelease release)
{
    return release >= ERelease::kR2007;
}

} // namespace dxf
