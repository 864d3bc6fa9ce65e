#include "host/db/entities/od_db_text_metrics.h"

namespace {

/// Mean width of a character with its gap, for a height of 1.
constexpr double kCharacterWidth = 0.85;
/// How far characters reach below the baseline, for a height of 1.
constexpr double kDescent = 1.0 / 3;

bool isDigit(wchar_t ch)
{
    return ch >= L'0' && ch <= L'9';
}

} // namespace

std::size_t odDbShownCharacters(OdString const& text)
{
    constexpr std::wstring_view kSwitches = L"uUoOkK";
    std::size_t const length = text.getLength();
    std::size_t shown = 0;
    for (std::size_t i = 0; i < length; ++i) {
        bool const isCode = text[i] == L'%' && i + 2 < length && text[i + 1] == L'%';
        if (isCode)
            i += 2;
        if (!isCode || kSwitches.find(text[i]) == std::wstring_view::npos)
            ++shown;
        // A character by its number has up to three digits.
        for (int more = 0; isCode && more < 2 && isDigit(text[i]) && i + 1 < length && isDigit(text[i + 1]);
             ++more)
            ++i;
    }
    return shown;
}

double odDbTextWidth(OdString const& text, double height, double widthFactor)
{
    return static_cast<double>(odDbShownCharacters(text)) * kCharacterWidth * height * widthFactor;
}

OdGeVector2d odDbTextAnchor(OdDbTextHorizontalMode horizontal, OdDbTextVerticalMode vertical, double width,
                            double height)
{
    using enum OdDbTextHorizontalMode;
    if (horizontal == OdDbTextHorizontalMode::kMiddle)
        return {width / 2, height / 2};
    double const x = horizontal == kCenter ? width / 2 : horizontal == kRight ? width : 0.0;
    switch (vertical) {
    case OdDbTextVerticalMode::kBottom: return {x, -kDescent * height};
    case OdDbTextVerticalMode::kMiddle: return {x, height / 2};
    case OdDbTextVerticalMode::kTop: return {x, height};
    default: return {x, 0};
    }
}
