#include "host/dxf/older/dxf_lower_names.h"

#include "host/db/records/od_db_symbol_table.h"
#include "host/db/records/od_db_table_kinds.h"

#include <algorithm>
#include <unordered_set>

namespace dxf {

namespace {

constexpr std::size_t kLongest = 31;

constexpr wchar_t const* nameOf(OdDbTableKind kind)
{
    switch (kind) {
    case OdDbTableKind::kBlock: return L"Block";
    case OdDbTableKind::kLayer: return L"Layer";
    case OdDbTableKind::kLinetype: return L"Linetype";
    case OdDbTableKind::kTextStyle: return L"Text style";
    case OdDbTableKind::kDimStyle: return L"Dimension style";
    case OdDbTableKind::kRegApp: return L"Application";
    case OdDbTableKind::kUcs: return L"UCS";
    case OdDbTableKind::kView: return L"View";
    case OdDbTableKind::kViewport: return L"Viewport";
    }
    return L"";
}

bool isPlain(wchar_t ch)
{
    // The bar stands in names of what comes from an external drawing.
    return (ch >= L'A' && ch <= L'Z') || (ch >= L'0' && ch <= L'9') || ch == L'$' || ch == L'-' || ch == L'_' ||
           ch == L'|';
}

std::string upperAscii(std::string_view text)
{
    std::string upper(text);
    for (char& ch : upper)
        if (ch >= 'a' && ch <= 'z')
            ch = static_cast<char>(ch - 'a' + 'A');
    return upper;
}

/// The name with the characters and the length that old releases allow.
std::string fittingName(OdString const& name)
{
    std::string fitting;
    std::wstring const& text = name.str();
    for (std::size_t i = 0; i < text.size() && fitting.size() < kLongest; ++i) {
        bool const isLower = text[i] >= L'a' && text[i] <= L'z';
        wchar_t const ch = isLower ? static_cast<wchar_t>(text[i] - L'a' + L'A') : text[i];
        bool const isAnonymous = i == 0 && ch == L'*';
        fitting += isPlain(ch) || isAnonymous ? static_cast<char>(ch) : '_';
    }
    return fitting;
}

/// The name, shortened and numbered as long as it is taken.
std::string uniqueName(std::string const& name, std::unordered_set<std::string>& taken,
                       std::unordered_map<std::string, int>& lastNumbers)
{
    std::string unique = name;
    for (int& number = lastNumbers[name]; !taken.insert(unique).second;) {
        std::string const suffix = '_' + std::to_string(++number);
        unique = name.substr(0, kLongest - suffix.size()) + suffix;
    }
    return unique;
}

} // namespace

LegacyNames::LegacyNames(LowerContext const& context) : m_context(context)
{
    m_changesAny = context.target < ERelease::kR2000 && context.origin >= ERelease::kR2000;
    if (m_changesAny)
        for (OdDbTableKindInfo const& kind : odDbTableKinds())
            makeFitting(kind.kind);
    if (context.target == ERelease::kR12)
        nameSpaces();
}

void LegacyNames::makeFitting(OdDbTableKind kind)
{
    std::unordered_set<std::string> taken;
    std::unordered_map<std::string, int> lastNumbers;
    std::vector<OdDbSymbolTableRecord const*> misfits;
    Names& names = m_names[static_cast<std::size_t>(kind)];
    auto const note = [&names](OdString const& from, std::string const& to) {
        std::string const spelling = from.toUtf8();
        names.byUpperName.emplace(upperAscii(spelling), to);
        names.bySpelling.emplace(spelling, to);
    };
    // Names that fit stay, whatever others become.
    for (OdDbStub const* const stub : m_context.database.table(kind).records()) {
        auto const& record = *static_cast<OdDbSymbolTableRecord const*>(stub->object);
        if (stub->erased || record.getName().isEmpty())
            continue;
        std::string fitting = fittingName(record.getName());
        bool const fits = fitting == upperAscii(record.getName().toUtf8());
        if (fits && (taken.insert(fitting).second || kind == OdDbTableKind::kViewport))
            note(record.getName(), fitting);
        else
            misfits.push_back(&record);
    }
    for (OdDbSymbolTableRecord const* const record : misfits) {
        std::string const name = uniqueName(fittingName(record->getName()), taken, lastNumbers);
        note(record->getName(), name);
        m_context.report.add(odFormat(L"%ls \"%ls\" is named \"%ls\" in %ls", nameOf(kind),
                                      record->getName().c_str(), OdString::fromUtf8(name).c_str(),
                                      m_context.targetName()),
                             record->getDbHandle());
    }
}

void LegacyNames::nameSpaces()
{
    m_changesAny = true;
    Names& blocks = m_names[static_cast<std::size_t>(OdDbTableKind::kBlock)];
    for (auto const& [name, oldName] :
         {std::pair("*MODEL_SPACE", "$MODEL_SPACE"), {"*PAPER_SPACE", "$PAPER_SPACE"}}) {
        blocks.byUpperName[name] = oldName;
        blocks.byUpperName[oldName] = std::string(oldName) + "_1"; // an ordinary block today
    }
    for (auto& [name, fitting] : blocks.bySpelling)
        if (auto const it = blocks.byUpperName.find(upperAscii(name)); it != blocks.byUpperName.end())
            fitting = it->second;
}

std::string_view LegacyNames::of(OdDbTableKind kind, std::string_view name) const
{
    Names const& names = m_names[static_cast<std::size_t>(kind)];
    if (names.byUpperName.empty())
        return name;
    if (auto const it = names.bySpelling.find(name); it != names.bySpelling.end())
        return it->second;
    auto const it = names.byUpperName.find(upperAscii(name));
    return it == names.byUpperName.end() ? name : std::string_view(it->second);
}

std::string_view LegacyNames::ofRecord(OdDbTableKind kind, OdDbHandle handle) const
{
    auto& byHandle = m_names[static_cast<std::size_t>(kind)].byHandle;
    if (!byHandle) {
        byHandle.emplace();
        for (OdDbStub const* const stub : m_context.database.table(kind).records())
            if (!stub->erased) {
                std::string const name =
                    static_cast<OdDbSymbolTableRecord const*>(stub->object)->getName().toUtf8();
                byHandle->emplace(stub->handle.value(), of(kind, name));
            }
    }
    auto const it = byHandle->find(handle.value());
    return it == byHandle->end() ? std::string_view() : std::string_view(it->second);
}

namespace {

using enum OdDbTableKind;

struct NamingGroup
{
    std::string_view type;
    int code;
    OdDbTableKind table;
};

// clang-format off
constexpr NamingGroup s_namingGroups[] = {
    {"", 8, kLayer},              {"", 6, kLinetype},
    {"TEXT", 7, kTextStyle},      {"MTEXT", 7, kTextStyle},      {"ATTRIB", 7, kTextStyle},
    {"ATTDEF", 7, kTextStyle},    {"ARCALIGNEDTEXT", 7, kTextStyle},
    {"ACAD_TABLE", 2, kBlock},    {"ACAD_TABLE", 7, kTextStyle}, {"TABLESTYLE", 7, kTextStyle},
    {"INSERT", 2, kBlock},        {"BLOCK", 2, kBlock},          {"BLOCK", 3, kBlock},
    {"DIMENSION", 2, kBlock},     {"DIMENSION", 3, kDimStyle},
    {"ARC_DIMENSION", 2, kBlock}, {"ARC_DIMENSION", 3, kDimStyle},
    {"LARGE_RADIAL_DIMENSION", 2, kBlock}, {"LARGE_RADIAL_DIMENSION", 3, kDimStyle},
    {"LEADER", 3, kDimStyle},     {"TOLERANCE", 3, kDimStyle},
    {"LAYER", 2, kLayer},         {"LAYER", 6, kLinetype},       {"LTYPE", 2, kLinetype},
    {"STYLE", 2, kTextStyle},     {"DIMSTYLE", 2, kDimStyle},    {"APPID", 2, kRegApp},
    {"UCS", 2, kUcs},             {"VIEW", 2, kView},            {"VPORT", 2, kViewport},
    {"BLOCK_RECORD", 2, kBlock},
    {"MLINESTYLE", 6, kLinetype}, {"LAYER_FILTER", 8, kLayer},   {"LAYER_INDEX", 8, kLayer},
};

struct NamingVariable
{
    std::string_view name;
    OdDbTableKind table;
};
constexpr NamingVariable s_namingVariables[] = {
    {"CLAYER", kLayer},      {"CELTYPE", kLinetype},  {"TEXTSTYLE", kTextStyle}, {"DIMSTYLE", kDimStyle},
    {"DIMTXSTY", kTextStyle},{"DIMBLK", kBlock},      {"DIMBLK1", kBlock},       {"DIMBLK2", kBlock},
    {"UCSNAME", kUcs},       {"PUCSNAME", kUcs},
};
// clang-format on

} // namespace

std::optional<OdDbTableKind> namedTable(std::string_view type, int code)
{
    for (NamingGroup const& group : s_namingGroups)
        if (group.code == code && group.type == type)
            return group.table;
    return std::nullopt;
}

std::optional<OdDbTableKind> namedTableOfVariable(std::string_view name)
{
    for (NamingVariable const& variable : s_namingVariables)
        if (variable.name == name)
            return variable.table;
    return std::nullopt;
}

} // namespace dxf
