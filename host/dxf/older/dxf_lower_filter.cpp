#include "host/dxf/older/dxf_lower_filter.h"

#include "host/dxf/older/dxf_old_records.h"

#include <algorithm>

namespace dxf {

namespace {

using enum ERelease;

constexpr int kFlags = 70;
constexpr int kMarker = 100;
constexpr int kEmbeddedObject = 101;
constexpr int kBraces = 102;
constexpr int kOwner = 330;
constexpr int kComment = 999;
constexpr int kExtendedData = 1000;
constexpr int kApplication = 1001;
constexpr int kLayerInData = 1003;
constexpr int kPictureSize = 160;
constexpr int kOldPictureSize = 92;
constexpr int kColumnType = 71; // in the object that is embedded in a MTEXT
constexpr int kColumns = 72;

/// Groups that programs write about an object for each other; nobody misses them in a release without groups.
bool isReference(std::string_view braces)
{
    return braces == "{ACAD_REACTORS" || braces == "{ACAD_XDICTIONARY";
}

bool isUsual(OdDbTag const& tag, double usual)
{
    switch (tag.kind) {
    case OdDbTagKind::kReal: return tag.real == usual;
    case OdDbTagKind::kInteger: return static_cast<double>(tag.integer) == usual;
    case OdDbTagKind::kHandle: return tag.handle().isNull();
    default: return tag.text.empty();
    }
}

int extendedCodeOf(OdDbTagKind kind)
{
    switch (kind) {
    case OdDbTagKind::kReal: return 1040;
    case OdDbTagKind::kInteger: return 1070;
    case OdDbTagKind::kHandle: return 1005;
    default: return 1000;
    }
}

} // namespace

struct LowerFilter::Place
{
    TypeRules const& rules;
    bool isEntity;
    OdDbHandle handle;
    std::string_view marker;

    bool isCommon() const { return isEntity && (marker.empty() || marker == "AcDbEntity"); }
};

LowerFilter::LowerFilter(LowerContext const& context, LegacyNames const& names, OdDbTagSink& target)
    : m_context(context),
      m_names(names),
      m_target(target),
      m_dimVariables(context, names),
      m_isR12(context.target == kR12),
      m_isFromR12(context.origin == kR12),
      m_lateCommon(LateGroups::common(context.target))
{
}

LowerFilter::TypeRules const& LowerFilter::rulesOf(std::string_view type, bool isEntity)
{
    if (m_lastRules && m_lastIsEntity == isEntity && m_lastRules->type == type)
        return *m_lastRules;
    auto& known = isEntity ? m_entityRules : m_otherRules;
    auto it = known.find(type);
    if (it == known.end()) {
        TypeRules rules{std::string(type), LateGroups::ofType(type, m_context.target), {}, {}};
        bool const isKnown = findOldForm(type) != nullptr;
        for (int code = 0; code < kCodes; ++code)
            rules.ofR12.set(static_cast<std::size_t>(code), !isKnown || isOldGroup(type, code));
        for (int code = 0; code <= kLastNameCode && m_names.changesAny(); ++code)
            rules.names[static_cast<std::size_t>(code)] = namedTable(type, code);
        it = known.emplace(std::string(type), std::move(rules)).first;
    }
    m_lastIsEntity = isEntity;
    m_lastRules = &it->second;
    return it->second;
}

void LowerFilter::writeTableRecord(TagSpan record)
{
    if (typeOf(record) == "DIMSTYLE")
        writeDimStyle(record);
    else
        writeRecord(record);
}

void LowerFilter::write(TagSpan record, bool isEntity)
{
    if (record.empty())
        return;
    Place place{rulesOf(typeOf(record), isEntity), isEntity, handleOf(record), {}};
    m_target.put(record.front());
    std::size_t i = writeEnvelope(record);
    while (i < record.size() && record[i].code < kExtendedData) {
        OdDbTag const& tag = record[i];
        if (tag.code == kMarker || (isEntity && tag.is(kEmbeddedObject, "Embedded Object"))) {
            i = writeMarker(record, i, place);
            continue;
        }
        writeTag(tag, place);
        ++i;
    }
    writeExtendedData(record.subspan(i), place);
}

/// Handle, groups in braces and owner; the number of tags that they are, with the type.
std::size_t LowerFilter::writeEnvelope(TagSpan record)
{
    bool const isTableHead = typeOf(record) == "TABLE";
    for (std::size_t i = 1; i < record.size(); ++i) {
        OdDbTag const& tag = record[i];
        if (tag.code == kBraces && tag.text.starts_with('{')) {
            auto const end = std::find_if(record.begin() + static_cast<std::ptrdiff_t>(i), record.end(),
                                          [](OdDbTag const& each) { return each.is(kBraces, "}"); });
            std::size_t const next = std::min(static_cast<std::size_t>(end - record.begin()) + 1, record.size());
            if (m_isR12 && !isReference(tag.text))
                m_context.noteLeftOut(typeOf(record), L"a group of an application", kR13, handleOf(record));
            for (std::size_t k = i; !m_isR12 && k < next; ++k)
                m_target.put(record[k]);
            i = next - 1;
        } else if (tag.code == kOwner) {
            if (!m_isR12)
                m_target.put(tag);
            return i + 1;
        } else if (tag.code == 5 || tag.code == 105 || tag.code == kComment || (isTableHead && tag.code == 2)) {
            m_target.put(tag);
        } else {
            return i;
        }
    }
    return record.size();
}

/// Begins a section, or passes over one that came later; the index of the tag to go on with.
std::size_t LowerFilter::writeMarker(TagSpan record, std::size_t index, Place& place)
{
    OdDbTag const& tag = record[index];
    auto const endOfSection = [&] {
        std::size_t end = index + 1;
        while (end < record.size() && record[end].code < kExtendedData && record[end].code != kMarker)
            ++end;
        return end;
    };
    if (tag.code == kEmbeddedObject) {
        TagSpan const object = record.subspan(index);
        bool const isText = place.rules.type == "MTEXT";
        bool const isSingleColumn = integerOf(object, kColumnType) == 0 || integerOf(object, kColumns) == 1;
        if (!isText || !isSingleColumn)
            m_context.noteLeftOut(place.rules.type,
                                  isText ? L"the arrangement in columns" : L"text of several lines", kR2018,
                                  place.handle);
        return endOfSection();
    }
    if (LateSection const* const late = findLateSection(place.rules.type, tag.text, m_context.target)) {
        if (late->what)
            m_context.noteLeftOut(place.rules.type, late->what, late->first, place.handle);
        return endOfSection();
    }
    place.marker = tag.text;
    if (!m_isR12)
        m_target.put(tag);
    return index + 1;
}

void LowerFilter::writeTag(OdDbTag const& tag, Place const& place)
{
    auto const code = static_cast<std::size_t>(tag.code);
    bool const isOfR12 = code >= kCodes || place.rules.ofR12[code];
    LateGroups const& groups = place.isCommon() ? m_lateCommon : place.rules.late;
    LateGroup const* const late = groups.find(tag.code, place.marker);
    if (late && tag.code == kPictureSize && m_context.target >= kR2000)
        return m_target.integer(kOldPictureSize, tag.integer);
    bool const isAtHome = m_isR12 && m_isFromR12 && isOfR12;
    if (late && !isAtHome)
        return noteLate(*late, tag, place);
    if (m_isR12 && !m_isFromR12 && !isOfR12 && tag.code != kComment)
        return noteUnknownInR12(tag, place);
    if (tag.kind == OdDbTagKind::kText && code <= kLastNameCode && m_names.changesAny()) {
        auto const table = place.isCommon() ? namedTable("", tag.code) : place.rules.names[code];
        if (table)
            return m_target.text(tag.code, m_names.of(*table, tag.text));
    }
    if (m_isR12 && tag.code == kFlags && tag.kind == OdDbTagKind::kInteger)
        return m_target.integer(tag.code, oldKindFlags(place.marker, tag.integer));
    m_target.put(tag);
}

void LowerFilter::writeDimStyle(TagSpan record)
{
    Place const place{rulesOf("DIMSTYLE", false), false, handleOf(record), {}};
    m_target.put(record.front());
    TagSpan const rest = record.subspan(writeEnvelope(record));
    TagSpan const data = extendedDataOf(rest);
    for (OdDbTag const& tag : m_dimVariables.ofStyle(rest.first(rest.size() - data.size()), place.handle)) {
        if (tag.code == kMarker && m_isR12)
            continue;
        if (tag.code == 2)
            m_target.text(2, m_names.of(OdDbTableKind::kDimStyle, tag.text));
        else
            m_target.put(tag);
    }
    writeExtendedData(data, place);
}

void LowerFilter::writeExtendedData(TagSpan data, Place const& place)
{
    bool const isNewer = m_context.origin > m_context.target;
    for (std::size_t i = 0; i < data.size(); ++i) {
        OdDbTag const& tag = data[i];
        if (isNewer && tag.is(kExtendedData, "DSTYLE"))
            i += writeOverrides(data.subspan(i), place) - 1;
        else if (m_names.changesAny() && tag.code == kApplication)
            m_target.text(tag.code, m_names.of(OdDbTableKind::kRegApp, tag.text));
        else if (m_names.changesAny() && tag.code == kLayerInData)
            m_target.text(tag.code, m_names.of(OdDbTableKind::kLayer, tag.text));
        else
            m_target.put(tag);
    }
}

/// Dimension variables that an entity changes: pairs of a code and a value. The number of tags of the list.
std::size_t LowerFilter::writeOverrides(TagSpan data, Place const& place)
{
    std::vector<OdDbTag> variables;
    std::size_t end = 2;
    while (end + 1 < data.size() && data[end].code == 1070) {
        OdDbTag variable = data[end + 1];
        variable.code = static_cast<std::int16_t>(data[end].integer);
        variables.push_back(variable);
        end += 2;
    }
    bool const isWhole = data.size() > end && data[1].is(1002, "{") && data[end].is(1002, "}");
    if (!isWhole) {
        m_target.put(data.front());
        return 1;
    }
    m_target.put(data[0]);
    m_target.put(data[1]);
    for (OdDbTag variable : m_dimVariables.ofOverrides(variables, place.rules.type, place.handle)) {
        m_target.integer(1070, variable.code);
        variable.code = static_cast<std::int16_t>(extendedCodeOf(variable.kind));
        m_target.put(variable);
    }
    m_target.put(data[end]);
    return end + 1;
}

void LowerFilter::noteLate(LateGroup const& late, OdDbTag const& tag, Place const& place)
{
    if (!late.what || isUsual(tag, late.usual))
        return;
    OdString& text = m_notes[{&place.rules, &late}];
    if (text.isEmpty())
        text = odFormat(L"%ls: %ls (group %d) needs %ls; left out", OdString::fromUtf8(place.rules.type).c_str(),
                        late.what, static_cast<int>(tag.code), releaseOf(late.first).name);
    m_context.report.add(text, place.handle);
}

void LowerFilter::noteUnknownInR12(OdDbTag const& tag, Place const& place)
{
    if (isUsual(tag, 0))
        return;
    m_context.noteLeftOut(place.rules.type, odFormat(L"the group %d", static_cast<int>(tag.code)), kR13,
                          place.handle);
}

} // namespace dxf
