#include "tests/testapi/random_commands.h"

#include <string_view>

namespace {

/// Answers are separated by "|", an empty one is Enter. Placeholders: @p a point, @d a distance, @i a small
/// number,
/// @a an angle, @c a color, @n a name, @s a selection with the Enter that ends it.
constexpr std::wstring_view s_templates[] = {
    L"LINE|@p|@p|@p|C",
    L"LINE|@p|@p|",
    L"CIRCLE|@p|@d",
    L"CIRCLE|2P|@p|@p",
    L"ARC|@p|@p|@p",
    L"PLINE|@p|W|@d|@d|@p|A|@p|L|@p|C",
    L"POINT|@p",
    L"ELLIPSE|C|@p|@p|@d",
    L"SPLINE|@p|@p|@p|@p|||",
    L"DONUT|@d|@d|@p|@p|",
    L"POLYGON|@i|@p|I|@d",
    L"RECTANG|@p|@p",
    L"TEXT|@p|@d|@a|@n",
    L"XLINE|@p|@p|@p|",
    L"RAY|@p|@p|",
    L"SOLID|@p|@p|@p|@p|",
    L"TRACE|@d|@p|@p|@p|",
    L"3DFACE|@p|@p|@p|@p|",
    L"3DPOLY|@p|@p|@p|",
    L"3DMESH|2|2|@p|@p|@p|@p",
    L"PFACE|@p|@p|@p||1|2|3||",
    L"-BLOCK|@n|@p|@s",
    L"-INSERT|@n|@p|@d|@d|@a",
    L"MINSERT|@n|@p|1|1|@a|2|3|@d|@d",
    L"ERASE|@s",
    L"MOVE|@s|@p|@p",
    L"COPY|@s|@p|@p|",
    L"ROTATE|@s|@p|@a",
    L"SCALE|@s|@p|@i",
    L"MIRROR|@s|@p|@p|Y",
    L"MIRROR|@s|@p|@p|N",
    L"-ARRAY|@s|R|2|2|@d|@d",
    L"EXPLODE|@s",
    L"STRETCH|C|@p|@p||@p|@p",
    L"CHPROP|@s|C|@c|",
    L"CHPROP|@s|LA|0|LT|BYBLOCK|",
    L"-LAYER|M|@n|C|@c||",
    L"-LAYER|N|@n|OFF|@n|",
    L"-COLOR|@c",
    L"-LINETYPE|S|BYBLOCK|",
    L"LWEIGHT|0.5",
    L"UCS|@p|@p|@p",
    L"UCS|X|@a",
    L"UCS|W",
    L"UCS|S|@n",
    L"PLAN|W",
    L"ZOOM|W|@p|@p",
    L"ZOOM|E",
    L"SETVAR|TEXTSIZE|@d",
    L"SETVAR|LTSCALE|@d",
    L"SETVAR|PDMODE|3",
    L"SETVAR|ELEVATION|@d",
    L"-PURGE|A|*|N",
    L"-PURGE|LA|*|N",
    L"AUDIT|Y",
};

constexpr wchar_t const* s_names[] = {L"WALLS", L"DOOR", L"N1", L"N2", L"Grüße"};
constexpr std::wstring_view s_selections[] = {L"ALL", L"L", L"P", L"C|-20,-20|5,5", L"W|-20,-20|20,20"};

/// Calls `use` with each piece of a text between "|".
template <class Use>
void forEachPiece(std::wstring_view text, Use const& use)
{
    for (std::size_t end = 0; end != text.npos;) {
        end = text.find(L'|');
        use(text.substr(0, end));
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
}

} // namespace

OdString RandomCommands::point()
{
    // Whole numbers, so that points coincide and constructions degenerate now and then.
    OdString const xy = odFormat(L"%d,%d", below(31) - 15, below(31) - 15);
    return below(4) == 0 ? xy + odFormat(L",%d", below(5)) : xy;
}

OdString RandomCommands::filled(std::wstring_view word)
{
    if (word == L"@p")
        return point();
    if (word == L"@d")
        return odFormat(L"%.3g", (below(80) + 1) / 8.0);
    if (word == L"@i")
        return odFormat(L"%d", below(6) + 3);
    if (word == L"@a")
        return odFormat(L"%d", below(24) * 15);
    if (word == L"@c")
        return odFormat(L"%d", below(8) + 1);
    if (word == L"@n")
        return s_names[below(std::size(s_names))];
    return OdString(std::wstring(word));
}

void RandomCommands::addSelection(std::vector<OdString>& answers)
{
    forEachPiece(s_selections[below(std::size(s_selections))],
                 [&](std::wstring_view piece) { answers.push_back(OdString(std::wstring(piece))); });
    answers.push_back(L"");
}

std::vector<OdString> RandomCommands::next()
{
    std::vector<OdString> answers;
    forEachPiece(s_templates[below(std::size(s_templates))], [&](std::wstring_view word) {
        if (word == L"@s")
            addSelection(answers);
        else
            answers.push_back(filled(word));
    });
    return answers;
}
