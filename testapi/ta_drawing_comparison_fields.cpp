#include "testapi/ta_drawing_comparison_fields.h"

#include "testapi/ta_drawing_comparison_facts.h"

#include <cmath>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_drawing_comparison";

template <class T>
T const& as(void const* place)
{
    return *static_cast<T const*>(place);
}

/// Reading a place never changes the object; the accessors are shared with reading files.
void const* placeIn(OdDbObject const& object, OdDbField const& field)
{
    return field.place(const_cast<OdDbObject*>(&object));
}

std::int64_t integerAt(OdDbFieldKind kind, void const* place)
{
    switch (kind) {
    case OdDbFieldKind::kInt8: return as<std::int8_t>(place);
    case OdDbFieldKind::kInt16: return as<std::int16_t>(place);
    case OdDbFieldKind::kInt32: return as<std::int32_t>(place);
    default: return as<bool>(place) ? 1 : 0;
    }
}

/// Coordinates of a point, a real or an angle in radians; none for other kinds.
int realsAt(OdDbFieldKind kind, void const* place, double (&values)[3])
{
    switch (kind) {
    case OdDbFieldKind::kAngle: values[0] = as<OdDbAngle>(place).radians(); return 1;
    case OdDbFieldKind::kReal: values[0] = as<double>(place); return 1;
    case OdDbFieldKind::kPoint2:
    case OdDbFieldKind::kPoint3: {
        int const count = kind == OdDbFieldKind::kPoint2 ? 2 : 3;
        std::copy_n(static_cast<double const*>(place), count, values);
        return count;
    }
    default: return 0;
    }
}

bool sameReals(void const* place1, void const* place2, int count)
{
    auto const *const values1 = static_cast<double const*>(place1), *const values2 =
                                                                        static_cast<double const*>(place2);
    for (int i = 0; i < count; ++i)
        if (values1[i] != values2[i] && !(std::isnan(values1[i]) && std::isnan(values2[i])))
            return false;
    return true;
}

OdString textOfField(OdDbField const& field, void const* place, OdDbDatabase const& database)
{
    double values[3] = {};
    switch (realsAt(field.kind, place, values)) {
    case 1: return Comparison::textOf(values[0]);
    case 2:
        return odFormat(L"(%ls, %ls)", Comparison::textOf(values[0]).c_str(),
                        Comparison::textOf(values[1]).c_str());
    case 3: return Comparison::textOf(OdGePoint3d(values[0], values[1], values[2]));
    default: break;
    }
    switch (field.kind) {
    case OdDbFieldKind::kString: return Comparison::textOf(as<OdString>(place));
    case OdDbFieldKind::kReference: return Comparison::textOf(as<OdDbObjectId>(place));
    case OdDbFieldKind::kName: return Comparison::textOf(odDbNameMeant(field, as<OdDbObjectId>(place), database));
    default: return odFormat(L"%lld", static_cast<long long>(integerAt(field.kind, place)));
    }
}

/// Tails give points coordinate by coordinate; the code of a point is that of its x.
int codeOfPoint(OdDbTag const& tag)
{
    if (tag.kind != OdDbTagKind::kReal)
        return tag.code;
    return tag.code >= 20 && tag.code < 29   ? tag.code - 10
           : tag.code >= 30 && tag.code < 38 ? tag.code - 20
                                             : tag.code;
}

/// The next part of a list that is not erased, from an index on; null behind the last one.
OdDbEntity const* nextPart(std::span<OdDbStub* const> parts, std::size_t& index)
{
    while (index < parts.size() && parts[index]->erased)
        ++index;
    return index < parts.size() ? static_cast<OdDbEntity const*>(parts[index++]->object) : nullptr;
}

/// Parts as they are compared: attributes by tag, as their order says nothing; others in their order.
std::vector<OdDbEntity const*> partsOf(OdDbEntity const& entity)
{
    std::vector<OdDbEntity const*> parts;
    std::size_t index = 0;
    while (OdDbEntity const* const part = nextPart(entity.subentities(), index))
        parts.push_back(part);
    auto const isAttribute = [](OdDbEntity const* part) { return odCast<OdDbAttribute>(part) != nullptr; };
    if (std::ranges::all_of(parts, isAttribute))
        std::ranges::stable_sort(parts, {}, [](OdDbEntity const* part) {
            return static_cast<OdDbAttribute const*>(part)->tag().upper();
        });
    return parts;
}

wchar_t const* kindOfPart(OdDbEntity const& part)
{
    return odCast<OdDbAttribute>(&part) ? L"attribute" : odCast<OdDbVertex>(&part) ? L"vertex" : L"part";
}

/// The blocks of sheets are numbered by the order in which sheets were shown; users see the names of layouts.
bool isNameOfSheet(OdDbObject const& object, OdDbField const& field)
{
    constexpr int kName = 2;
    auto const* const block = field.code == kName ? odCast<OdDbBlockTableRecord>(&object) : nullptr;
    return block && block->isLayout();
}

} // namespace

FieldComparison::FieldComparison(OdDbDatabase const& first, OdDbDatabase const& second,
                                 Comparison::Options const& options, DrawingBridge const& bridge)
    : m_first(first), m_second(second), m_options(options), m_bridge(bridge), m_tags(bridge, options.eps)
{
}

bool FieldComparison::isCompared(OdDbSection const& section) const
{
    return !m_options.skipCommonProps || section.marker != kEntityMarker;
}

bool FieldComparison::areIdentical(OdDbObject const& object1, OdDbObject const& object2)
{
    if (object1.isA() != object2.isA() || !haveIdenticalFields(object1, object2) ||
        !haveIdenticalExtras(object1, object2))
        return false;
    auto const* const entity1 = odCast<OdDbEntity>(&object1);
    if (!entity1)
        return true;
    auto const parts1 = entity1->subentities(), parts2 = static_cast<OdDbEntity const&>(object2).subentities();
    std::size_t index1 = 0, index2 = 0;
    for (;;) {
        OdDbEntity const *const part1 = nextPart(parts1, index1), *const part2 = nextPart(parts2, index2);
        if (!part1 || !part2)
            return part1 == part2;
        if (part1->isA() != part2->isA() || !haveIdenticalFields(*part1, *part2) ||
            !haveIdenticalExtras(*part1, *part2))
            return false;
    }
}

bool FieldComparison::haveIdenticalFields(OdDbObject const& object1, OdDbObject const& object2)
{
    for (OdDbSection const& section : object1.fieldTable().sections()) {
        if (!isCompared(section) ||
            (section.isWritten && !section.isWritten(object1) && !section.isWritten(object2)))
            continue;
        for (OdDbField const& field : section.fields)
            if (!isIdentical(field, placeIn(object1, field), placeIn(object2, field)))
                return false;
        // The tail of the common properties says where the entity lies.
        if (!section.writeTail || section.marker == kEntityMarker)
            continue;
        if (section.isWritten && section.isWritten(object1) != section.isWritten(object2))
            return false;
        m_tags1.clear();
        m_tags2.clear();
        section.writeTail(object1, m_tags1);
        section.writeTail(object2, m_tags2);
        if (!m_tags.areIdentical(m_tags1, m_tags2))
            return false;
    }
    return true;
}

bool FieldComparison::isIdentical(OdDbField const& field, void const* place1, void const* place2) const
{
    switch (field.kind) {
    case OdDbFieldKind::kReal: return sameReals(place1, place2, 1);
    case OdDbFieldKind::kPoint2: return sameReals(place1, place2, 2);
    case OdDbFieldKind::kPoint3: return sameReals(place1, place2, 3);
    case OdDbFieldKind::kAngle: return as<OdDbAngle>(place1) == as<OdDbAngle>(place2);
    case OdDbFieldKind::kInt8: return as<std::int8_t>(place1) == as<std::int8_t>(place2);
    case OdDbFieldKind::kInt16: return as<std::int16_t>(place1) == as<std::int16_t>(place2);
    case OdDbFieldKind::kInt32: return as<std::int32_t>(place1) == as<std::int32_t>(place2);
    case OdDbFieldKind::kBool: return as<bool>(place1) == as<bool>(place2);
    case OdDbFieldKind::kString: return as<OdString>(place1) == as<OdString>(place2);
    case OdDbFieldKind::kReference: return m_bridge.same(as<OdDbObjectId>(place1), as<OdDbObjectId>(place2));
    case OdDbFieldKind::kName: return isSameName(field, as<OdDbObjectId>(place1), as<OdDbObjectId>(place2));
    }
    return false;
}

/// Whether a usual name is left out in one drawing and not in the other says nothing.
bool FieldComparison::isSameName(OdDbField const& field, OdDbObjectId name1, OdDbObjectId name2) const
{
    if (name1.isNull() == name2.isNull())
        return m_bridge.same(name1, name2);
    return m_bridge.same(odDbNameMeant(field, name1, m_first), odDbNameMeant(field, name2, m_second));
}

void FieldComparison::compare(OdDbObject const& object1, OdDbObject const& object2, EFields fields,
                              DifferenceSink& sink)
{
    comparePair({object1, object2, fields, sink});
}

void FieldComparison::compareWithParts(OdDbEntity const& entity1, OdDbEntity const& entity2, EFields fields,
                                       DifferenceSink& sink)
{
    Pair const whole{entity1, entity2, fields, sink};
    comparePair(whole);
    if (entity1.subentities().empty() && entity2.subentities().empty())
        return;
    std::vector<OdDbEntity const*> const parts1 = partsOf(entity1), parts2 = partsOf(entity2);
    if (fields == kAll && parts1.size() != parts2.size())
        tell(whole, L"number of parts", odFormat(L"%d", static_cast<int>(parts1.size())),
             odFormat(L"%d", static_cast<int>(parts2.size())));
    for (std::size_t i = 0; i < std::min(parts1.size(), parts2.size()); ++i) {
        OdDbEntity const &part1 = *parts1[i], &part2 = *parts2[i];
        OdString const name = odFormat(L"%ls %d", kindOfPart(part1), static_cast<int>(i) + 1);
        Pair const pair{part1, part2, fields, sink, name, &entity1, &entity2};
        if (part1.isA() == part2.isA())
            comparePair(pair);
        else if (fields == kAll)
            tell(pair, L"class", classNameOf(part1), classNameOf(part2));
    }
}

void FieldComparison::comparePair(Pair const& pair)
{
    for (OdDbSection const& section : pair.object1.fieldTable().sections()) {
        if (!isCompared(section) ||
            (section.isWritten && !section.isWritten(pair.object1) && !section.isWritten(pair.object2)))
            continue;
        for (OdDbField const& field : section.fields)
            compareField(pair, section.marker, field);
        if (section.writeTail && section.marker != kEntityMarker && pair.fields != kWithoutTails)
            compareTail(pair, section);
    }
    if (pair.object1.extras() || pair.object2.extras())
        compareExtras(pair);
}

/// The parts of some entities take over what is set for the whole.
bool FieldComparison::followsWhole(Pair const& pair, OdDbField const& field) const
{
    auto const follows = [&](OdDbObject const& part, OdDbObject const& whole) {
        void const *const place = placeIn(part, field), *const placeInWhole = placeIn(whole, field);
        bool const isId = field.kind == OdDbFieldKind::kName || field.kind == OdDbFieldKind::kReference;
        return isId ? as<OdDbObjectId>(place) == as<OdDbObjectId>(placeInWhole)
                    : isIdentical(field, place, placeInWhole);
    };
    return pair.whole1 && follows(pair.object1, *pair.whole1) && follows(pair.object2, *pair.whole2);
}

void FieldComparison::compareField(Pair const& pair, std::string_view marker, OdDbField const& field)
{
    if (isNameOfSheet(pair.object1, field))
        return;
    void const *const place1 = placeIn(pair.object1, field), *const place2 = placeIn(pair.object2, field);
    if (isIdentical(field, place1, place2) || (marker == kEntityMarker && followsWhole(pair, field)))
        return;
    int const told = pair.fields == kWithoutRows
                         ? toldByRows(marker, field.code, pair.object1, pair.object2, m_options.eps)
                         : 0;
    double values1[3] = {}, values2[3] = {}, offBy = 0;
    int const reals = realsAt(field.kind, place1, values1);
    realsAt(field.kind, place2, values2);
    bool differs = reals == 0 && told != -1;
    for (int i = 0; i < reals; ++i) {
        double const off = std::abs(values1[i] - values2[i]);
        if ((told >> i & 1) != 0 || off <= m_options.eps || values1[i] == values2[i])
            continue;
        differs = true;
        offBy = std::isnan(off) ? off : std::max(offBy, off);
    }
    bool const isText = field.kind == OdDbFieldKind::kString || field.kind == OdDbFieldKind::kReference ||
                        field.kind == OdDbFieldKind::kName;
    if (reals == 0 && !isText)
        differs = ((integerAt(field.kind, place1) ^ integerAt(field.kind, place2)) & ~std::int64_t(told)) != 0;
    if (differs)
        tell(pair, fieldName(pair.object1, marker, field.code), textOfField(field, place1, m_first),
             textOfField(field, place2, m_second), offBy);
}

void FieldComparison::compareTail(Pair const& pair, OdDbSection const& section)
{
    m_tags1.clear();
    m_tags2.clear();
    if (!section.isWritten || section.isWritten(pair.object1))
        section.writeTail(pair.object1, m_tags1);
    if (!section.isWritten || section.isWritten(pair.object2))
        section.writeTail(pair.object2, m_tags2);
    if (m_tags.agree(m_tags1, m_tags2))
        return;
    constexpr int kPartsFollow = 66; // the parts themselves tell
    auto const isTold = [&](OdDbTag const& tag) {
        return tag.code == kPartsFollow ||
               (pair.fields == kWithoutRows &&
                toldByRows(section.marker, codeOfPoint(tag), pair.object1, pair.object2, m_options.eps) == -1);
    };
    m_tags1.removeIf(isTold);
    m_tags2.removeIf(isTold);
    tellTags(pair, [&](int code) { return fieldName(pair.object1, section.marker, code); });
}

void FieldComparison::tellTags(Pair const& pair, std::function<OdString(int code)> const& nameOf)
{
    m_tags.compare(m_tags1, m_tags2, [&](OdDbTag const* tag1, OdDbTag const* tag2) {
        bool const areReals = tag1 && tag2 && tag1->kind == OdDbTagKind::kReal && tag2->kind == OdDbTagKind::kReal;
        tell(pair, nameOf(codeOfPoint(tag1 ? *tag1 : *tag2)), TagComparison::textOf(tag1, m_first),
             TagComparison::textOf(tag2, m_second), areReals ? std::abs(tag1->real - tag2->real) : 0);
    });
}

void FieldComparison::tell(Pair const& pair, OdString const& name, OdString const& value1, OdString const& value2,
                           double offBy) const
{
    pair.sink.differs({.expression = nullptr,
                       .message = L"Incorrect " + name + L" value",
                       .expected = value2,
                       .actual = value1,
                       .offBy = offBy,
                       .allowed = offBy == 0 ? 0 : m_options.eps,
                       .part = pair.part,
                       .place = {s_area, __LINE__}});
}

} // namespace ta
