#include "host/db/entities/od_db_paragraph.h"

#include "host/db/entities/od_db_plain_lines.h"

#include <algorithm>

namespace {

constexpr double kLineDistance = 5.0 / 3.0; // of lines with spacing 1, in heights

/// The line broken where it is wider than the frame; words stay whole.
void breakLine(OdString const& line, OdDbParagraph const& paragraph, std::vector<OdString>& broken)
{
    double const character = odDbTextWidth(L"x", paragraph.height, paragraph.widthFactor);
    auto const fits = [&](std::size_t characters) {
        return !(paragraph.frameWidth > 0) || static_cast<double>(characters) * character <= paragraph.frameWidth;
    };
    if (fits(odDbShownCharacters(line))) {
        broken.push_back(line);
        return;
    }
    std::wstring const& text = line.str();
    std::wstring current;
    std::size_t length = 0; // of the current line, in characters
    for (std::size_t from = 0; from <= text.size();) {
        std::size_t const end = std::min(text.find(L' ', from), text.size());
        std::wstring const word = text.substr(from, end - from);
        std::size_t const wordLength = odDbShownCharacters(OdString(word));
        if (from == 0) {
            current = word;
            length = wordLength;
        } else if (current.empty() || fits(length + 1 + wordLength)) {
            current += L' ' + word;
            length += 1 + wordLength;
        } else {
            broken.emplace_back(current);
            current = word;
            length = wordLength;
        }
        from = end + 1;
    }
    broken.emplace_back(current);
}

} // namespace

double OdDbParagraph::lineDistance() const
{
    return height * kLineDistance * lineSpacing;
}

double OdDbParagraph::blockHeight(std::size_t count) const
{
    return count == 0 ? 0 : height + lineDistance() * static_cast<double>(count - 1);
}

double OdDbParagraph::blockTop(std::size_t count) const
{
    switch (vertical) {
    case OdDbTextVerticalMode::kTop: return 0;
    case OdDbTextVerticalMode::kMiddle: return blockHeight(count) / 2;
    default: return blockHeight(count);
    }
}

std::vector<OdDbParagraph::Line> OdDbParagraph::lines(OdString const& contents) const
{
    std::vector<OdString> broken;
    for (OdString const& line : odDbPlainLines(contents))
        breakLine(line, *this, broken);
    double const top = blockTop(broken.size());
    std::vector<Line> result;
    result.reserve(broken.size());
    for (std::size_t i = 0; i < broken.size(); ++i)
        result.push_back({broken[i], odDbTextWidth(broken[i], height, widthFactor),
                          top - lineDistance() * static_cast<double>(i)});
    return result;
}
