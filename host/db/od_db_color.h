#pragma once

#include <cstdint>

/// Color of an entity or layer: an index of the standard palette (1 to 255), by block (0), by layer (256), or a
/// true color, which goes with the index nearest to it.
class OdCmColor
{
public:
    static constexpr std::int16_t kByBlock = 0;
    static constexpr std::int16_t kByLayer = 256;

    constexpr OdCmColor() = default;
    constexpr explicit OdCmColor(std::int16_t index) : m_index(index) {}
    static constexpr OdCmColor trueColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue,
                                         std::int16_t nearest)
    {
        OdCmColor color(nearest);
        color.m_rgb = red << 16 | green << 8 | blue;
        return color;
    }

    constexpr std::int16_t colorIndex() const { return m_index; }
    constexpr bool isByLayer() const { return m_index == kByLayer && !isTrueColor(); }
    constexpr bool isByBlock() const { return m_index == kByBlock && !isTrueColor(); }
    constexpr bool isTrueColor() const { return m_rgb != kNoRgb; }
    /// 0xRRGGBB; meaningful for a true color.
    constexpr std::int32_t rgb() const { return m_rgb; }

    friend constexpr bool operator==(OdCmColor const&, OdCmColor const&) = default;

private:
    friend struct OdCmColorFields;
    static constexpr std::int32_t kNoRgb = -1;
    std::int16_t m_index = kByLayer;
    std::int32_t m_rgb = kNoRgb;
};

/// Places of the parts, for the field tables.
struct OdCmColorFields
{
    static constexpr std::int16_t& index(OdCmColor& color) { return color.m_index; }
    static constexpr std::int32_t& rgb(OdCmColor& color) { return color.m_rgb; }
};
