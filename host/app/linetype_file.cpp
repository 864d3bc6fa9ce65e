#include "host/app/linetype_file.h"

#include "host/geom/od_ge_angle.h"
#include "host/ut/ut_number.h"

#include <algorithm>
#include <cmath>

namespace ca {

namespace {

constexpr std::size_t kLeastDashes = 2;
constexpr std::size_t kMostDashes = 12;

std::wstring_view trimmed(std::wstring_view text)
{
    constexpr wchar_t const* kBlanks = L" \t";
    std::size_t const first = text.find_first_not_of(kBlanks);
    return first == text.npos ? std::wstring_view()
                              : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

[[noreturn]] void fail(OdString const& reason)
{
    throw OdError(eInvalidInput, reason);
}

/// Takes the text up to the next comma, and the comma. Commas in quotes and brackets do not count.
std::wstring_view takeElement(std::wstring_view& rest)
{
    bool isInQuotes = false, isInBrackets = false;
    std::size_t end = 0;
    for (; end < rest.size(); ++end) {
        wchar_t const ch = rest[end];
        isInQuotes = (ch == L'"') != isInQuotes;
        if (isInQuotes)
            continue;
        if (ch == L'[' || ch == L']')
            isInBrackets = ch == L'[';
        if (ch == L',' && !isInBrackets)
            break;
    }
    std::wstring_view const element = trimmed(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return element;
}

double numberOf(std::wstring_view text)
{
    double value = 0;
    if (!ut::parseReal(text, value))
        fail(odFormat(L"\"%ls\" is not a number.", OdString(text).c_str()));
    return value;
}

/// Degrees, or with "r" or "g" behind the number radians or grads.
double angleOf(std::wstring_view text)
{
    double factor = odgeToRadians(1);
    if (!text.empty() && std::wstring_view(L"dDrRgG").find(text.back()) != text.npos) {
        wchar_t const unit = odToLower(text.back());
        if (unit != L'd')
            factor = unit == L'r' ? 1 : Oda2PI / 400;
        text.remove_suffix(1);
    }
    return numberOf(text) * factor;
}

void takeTextSetting(LinetypeDefinition::Dash& dash, std::wstring_view setting)
{
    std::size_t const equals = setting.find(L'=');
    std::wstring_view const value = equals == setting.npos ? L"" : trimmed(setting.substr(equals + 1));
    wchar_t const name = odToUpper(setting.empty() ? L' ' : setting.front());
    switch (name) {
    case L'S': dash.scale = numberOf(value); break;
    case L'X': dash.offset.x = numberOf(value); break;
    case L'Y': dash.offset.y = numberOf(value); break;
    case L'R':
    case L'U': // upright texts, which the drawing shows along the line
    case L'A':
        dash.rotation = angleOf(value);
        dash.isRotationAbsolute = name == L'A';
        break;
    default: fail(odFormat(L"\"%ls\" is not known.", OdString(setting).c_str()));
    }
}

/// What stands in brackets: the text, its style, and settings.
void takeText(LinetypeDefinition::Dash& dash, std::wstring_view inside)
{
    std::wstring_view const quoted = takeElement(inside);
    if (quoted.size() < 2 || quoted.front() != L'"' || quoted.back() != L'"')
        fail(L"Shapes are not supported in linetypes.");
    dash.text = OdString(quoted.substr(1, quoted.size() - 2));
    dash.style = OdString(takeElement(inside));
    if (dash.text.isEmpty() || dash.style.isEmpty())
        fail(L"A text and a text style are required in brackets.");
    while (!inside.empty())
        takeTextSetting(dash, takeElement(inside));
}

void check(std::vector<LinetypeDefinition::Dash> const& dashes)
{
    if (dashes.size() < kLeastDashes || dashes.size() > kMostDashes)
        fail(L"A linetype requires 2 to 12 dashes, gaps and dots.");
    if (dashes.front().length < 0)
        fail(L"A linetype begins with a dash or a dot.");
    bool const hasLength = std::ranges::any_of(dashes, [](auto const& dash) { return dash.length != 0; });
    if (!hasLength)
        fail(L"A linetype requires a length.");
}

/// A standard linetype in inches.
struct StandardLinetype
{
    wchar_t const* name;
    wchar_t const* description;
    wchar_t const* pattern;
};
// clang-format off
constexpr StandardLinetype kStandard[] = {
    {L"BORDER",  L"Border",   L".5,-.25,.5,-.25,0,-.25"},
    {L"CENTER",  L"Center",   L"1.25,-.25,.25,-.25"},
    {L"DASHDOT", L"Dash dot", L".5,-.25,0,-.25"},
    {L"DASHED",  L"Dashed",   L".5,-.25"},
    {L"DIVIDE",  L"Divide",   L".5,-.25,0,-.25,0,-.25"},
    {L"DOT",     L"Dot",      L"0,-.25"},
    {L"HIDDEN",  L"Hidden",   L".25,-.125"},
    {L"PHANTOM", L"Phantom",  L"1.25,-.25,.25,-.25,.25,-.25"},
};
// clang-format on

struct Variant
{
    wchar_t const* nameSuffix;
    wchar_t const* descriptionSuffix;
    double factor;
};
constexpr Variant kVariants[] = {{L"", L"", 1}, {L"2", L" (.5x)", 0.5}, {L"X2", L" (2x)", 2}};

/// The dashes as one would draw them with letters.
OdString picture(std::vector<LinetypeDefinition::Dash> const& dashes)
{
    double longest = 0;
    for (auto const& dash : dashes)
        longest = std::max(longest, dash.length);
    OdString text;
    for (int repetition = 0; repetition < 3; ++repetition) {
        for (auto const& dash : dashes) {
            if (dash.length < 0)
                text += L" ";
            else if (dash.length == 0)
                text += L".";
            else
                text += dash.length == longest ? L"____" : L"__";
        }
    }
    return text;
}

} // namespace

std::vector<LinetypeDefinition::Dash> parseLinetypePattern(std::wstring_view pattern)
{
    std::wstring_view rest = trimmed(pattern);
    std::wstring_view const afterAlignment = rest.substr(std::min<std::size_t>(rest.size(), 1));
    bool const hasAlignment = !rest.empty() && odToUpper(rest.front()) == L'A' && afterAlignment.starts_with(L",");
    if (hasAlignment)
        rest.remove_prefix(2);
    std::vector<LinetypeDefinition::Dash> dashes;
    while (!rest.empty()) {
        std::wstring_view const element = takeElement(rest);
        if (!element.starts_with(L"[")) {
            dashes.emplace_back().length = numberOf(element);
            continue;
        }
        if (!element.ends_with(L"]"))
            fail(L"A bracket is not closed.");
        if (dashes.empty() || !dashes.back().text.isEmpty())
            fail(L"A text stands behind the dash or gap to which it belongs.");
        takeText(dashes.back(), element.substr(1, element.size() - 2));
    }
    check(dashes);
    return dashes;
}

std::vector<LinetypeDefinition> parseLinetypes(std::span<std::wstring_view const> lines)
{
    std::vector<LinetypeDefinition> definitions;
    bool isPatternMissing = false;
    for (std::size_t number = 1; number <= lines.size(); ++number) {
        std::wstring_view line = trimmed(lines[number - 1]);
        if (line.empty() || line.starts_with(L";"))
            continue;
        try {
            if (line.starts_with(L"*") == isPatternMissing)
                fail(isPatternMissing ? L"A line of dashes is missing."
                                      : L"A line of name and description is missing.");
            if (isPatternMissing) {
                definitions.back().dashes = parseLinetypePattern(line);
            } else {
                line.remove_prefix(1);
                std::size_t const comma = std::min(line.find(L','), line.size());
                LinetypeDefinition& definition = definitions.emplace_back();
                definition.name = OdString(trimmed(line.substr(0, comma)));
                definition.description = OdString(trimmed(line.substr(std::min(comma + 1, line.size()))));
            }
        } catch (OdError const& error) {
            fail(odFormat(L"Line %d: ", static_cast<int>(number)) + error.description());
        }
        isPatternMissing = !isPatternMissing;
    }
    if (isPatternMissing)
        fail(L"The line of dashes of the last linetype is missing.");
    return definitions;
}

std::vector<LinetypeDefinition> standardLinetypes(bool isMetric)
{
    constexpr double kMillimetresOfInch = 25.4;
    std::vector<LinetypeDefinition> definitions;
    for (StandardLinetype const& standard : kStandard) {
        std::vector<LinetypeDefinition::Dash> const dashes = parseLinetypePattern(standard.pattern);
        for (Variant const& variant : kVariants) {
            LinetypeDefinition& definition = definitions.emplace_back();
            definition.name = OdString(standard.name) + variant.nameSuffix;
            definition.description =
                OdString(standard.description) + variant.descriptionSuffix + L" " + picture(dashes);
            definition.dashes = dashes;
            for (auto& dash : definition.dashes)
                dash.length *= variant.factor * (isMetric ? kMillimetresOfInch : 1);
        }
    }
    return definitions;
}

} // namespace ca
