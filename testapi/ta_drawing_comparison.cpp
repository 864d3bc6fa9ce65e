// Almost all entities of two drawings are the same to the last bit, which is quickly seen from their fields. Only
// the others go through the rows of the entity comparison, which tell what differs, and then through those fields
// of which no row speaks.
#include "testapi/ta_drawing_comparison_fields.h"
#include "testapi/ta_drawing_comparison_teller.h"
#include "testapi/ta_drawing_comparison_used.h"

namespace ta {

namespace {

constexpr std::wstring_view s_prefix = L"Incorrect ";
constexpr std::wstring_view s_suffix = L" value";

/// Empty without handles.
OdString handlesText(OdDbHandle handle1, OdDbHandle handle2)
{
    if (handle1.isNull() && handle2.isNull())
        return {};
    if (handle1 == handle2 || handle2.isNull())
        return handle1.ascii();
    return handle1.isNull() ? handle2.ascii() : handle1.ascii() + L"/" + handle2.ascii();
}

} // namespace

OdString DrawingDifference::propertyName() const
{
    std::wstring_view const text = property.message.str();
    bool const isValue = text.starts_with(s_prefix) && text.ends_with(s_suffix);
    if (!isValue || text.size() < s_prefix.size() + s_suffix.size())
        return property.message;
    return OdString(text.substr(s_prefix.size(), text.size() - s_prefix.size() - s_suffix.size()));
}

OdString DrawingDifference::text(wchar_t const* firstDrawing, wchar_t const* secondDrawing) const
{
    OdString object = className;
    OdString const which = name.isEmpty() ? handlesText(handle1, handle2) : name;
    if (!which.isEmpty())
        object += (object.isEmpty() ? L"" : L" ") + which;
    OdString result = place + (object.isEmpty() ? L"" : L": ") + object;
    if (kind != EKind::kChanged)
        return result + L": only in " + (kind == EKind::kOnlyInFirst ? firstDrawing : secondDrawing);
    if (!property.part.isEmpty())
        result += L", " + property.part;
    result += L": " + propertyName();
    if (!property.actual.isEmpty() || !property.expected.isEmpty())
        result += L": " + property.actual + L" | " + property.expected;
    if (property.offBy != 0)
        result += odFormat(L", off by %ls, allowed %ls", Comparison::textOf(property.offBy).c_str(),
                           Comparison::textOf(property.allowed).c_str());
    return result;
}

DrawingComparison::Teller::Teller(OdString const& place, OdDbObject const& object1, OdDbObject const& object2,
                                  DrawingComparison* receiver)
    : m_receiver(receiver)
{
    if (!receiver)
        return;
    m_difference.place = place;
    m_difference.className = classNameOf(object1);
    m_difference.handle1 = object1.getDbHandle();
    m_difference.handle2 = object2.getDbHandle();
}

void DrawingComparison::Teller::differs(Difference const& difference)
{
    ++m_count;
    if (!m_receiver || isToldWithWhole(difference))
        return;
    if (difference.part.isEmpty())
        m_ofWhole.push_back(difference);
    m_difference.property = difference;
    m_receiver->tell(m_difference);
}

/// The parts of some entities take over what is set for the whole, as their layer.
bool DrawingComparison::Teller::isToldWithWhole(Difference const& difference) const
{
    if (difference.part.isEmpty())
        return false;
    return std::ranges::any_of(m_ofWhole, [&difference](Difference const& told) {
        return told.message == difference.message && told.actual == difference.actual &&
               told.expected == difference.expected;
    });
}

DrawingComparison::DrawingComparison(OdDbDatabase const& first, OdDbDatabase const& second,
                                     Comparison::Options const& options, Receiver receiver)
    : m_first(first),
      m_second(second),
      m_options(options),
      m_receiver(std::move(receiver)),
      m_bridge(std::make_unique<DrawingBridge>(first, second)),
      m_fields(std::make_unique<FieldComparison>(first, second, options, *m_bridge))
{
}

DrawingComparison::~DrawingComparison() = default;

void DrawingComparison::tell(DrawingDifference const& difference)
{
    ++m_differences;
    if (m_receiver)
        m_receiver(difference);
}

void DrawingComparison::tellOnly(OdString const& place, OdDbObject const& object, OdString const& name,
                                 bool isInFirst)
{
    using EKind = DrawingDifference::EKind;
    DrawingDifference difference;
    difference.kind = isInFirst ? EKind::kOnlyInFirst : EKind::kOnlyInSecond;
    difference.place = place;
    difference.className = classNameOf(object);
    difference.name = name;
    (isInFirst ? difference.handle1 : difference.handle2) = object.getDbHandle();
    tell(difference);
}

OdString DrawingComparison::placeOf(OdDbBlockTableRecord const& block)
{
    if (block.database()->getModelSpaceId() == block.objectId())
        return L"model space";
    OdDbObjectId const id = block.getLayoutId();
    if (auto const* const layout = id.isErased() ? nullptr : odCast<OdDbLayout>(id.stub()->object))
        return L"sheet " + layout->getLayoutName();
    return L"block " + block.getName();
}

OdString DrawingComparison::placeOf(OdDbEntity const& entity)
{
    OdDbObjectId const owner = entity.ownerId();
    auto const* const block = owner.isValid() ? odCast<OdDbBlockTableRecord>(owner.stub()->object) : nullptr;
    return block ? placeOf(*block) : OdString(L"drawing");
}

bool DrawingComparison::tellPair(OdDbEntity const& entity1, OdDbEntity const& entity2, EDepth depth,
                                 Teller& teller)
{
    bool const isSameClass = entity1.isA() == entity2.isA();
    bool const isKnown = Comparison::knows(entity1.isA());
    if (isKnown || !isSameClass)
        Comparison(teller, m_options, m_bridge.get()).entities(entity1, entity2);
    teller.setFileFields(true);
    if (isSameClass && !isKnown)
        m_fields->compareWithParts(entity1, entity2, FieldComparison::kAll, teller);
    else if (isSameClass && depth == kEverything)
        m_fields->compareWithParts(entity1, entity2, FieldComparison::kWithoutRows, teller);
    return teller.count() == 0;
}

bool DrawingComparison::comparePair(OdString const& place, OdDbEntity const& entity1, OdDbEntity const& entity2,
                                    EDepth depth)
{
    if (m_fields->areIdentical(entity1, entity2))
        return true;
    Teller teller(place, entity1, entity2, this);
    return tellPair(entity1, entity2, depth, teller);
}

bool DrawingComparison::agree(OdDbEntity const& entity1, OdDbEntity const& entity2, EDepth depth)
{
    if (m_fields->areIdentical(entity1, entity2))
        return true;
    if (entity1.isA() != entity2.isA())
        return false;
    Teller counting({}, entity1, entity2, nullptr);
    return tellPair(entity1, entity2, depth, counting);
}

void DrawingComparison::countPair(OdDbEntity const& entity)
{
    ++m_comparedEntities;
    if (entity.isA() != m_countedClass) {
        m_countedClass = entity.isA();
        m_isCountedByFields = !Comparison::knows(m_countedClass);
    }
    if (m_isCountedByFields)
        ++m_comparedByFields[classNameOf(entity)];
}

bool DrawingComparison::entities(OdDbEntity const& entity1, OdDbEntity const& entity2)
{
    countPair(entity1);
    return comparePair(placeOf(entity1), entity1, entity2, kRowsOnly);
}

bool DrawingComparison::entitiesInOrder(OdDbObjectId block1, OdDbObjectId block2)
{
    long const before = m_differences;
    auto const first = block1.open<OdDbBlockTableRecord>(), second = block2.open<OdDbBlockTableRecord>();
    OdString const place = placeOf(*first);
    OdDbObjectIterator it1 = first->newIterator(), it2 = second->newIterator();
    auto const entityAt = [](OdDbObjectIterator const& it) -> OdDbEntity const& {
        return static_cast<OdDbEntity const&>(*it.objectId().stub()->object);
    };
    for (; !it1.done() && !it2.done(); it1.step(), it2.step()) {
        OdDbEntity const &entity1 = entityAt(it1), &entity2 = entityAt(it2);
        countPair(entity1);
        comparePair(place, entity1, entity2, kRowsOnly);
    }
    for (; !it1.done(); it1.step())
        tellOnly(place, entityAt(it1), {}, true);
    for (; !it2.done(); it2.step())
        tellOnly(place, entityAt(it2), {}, false);
    return m_differences == before;
}

bool DrawingComparison::recordsOfEqualName()
{
    return compareRecordsWhere([](OdDbSymbolTableRecord const&) { return true; });
}

bool DrawingComparison::recordsUsedBy(std::vector<OdDbEntity const*> const& entities)
{
    UsedRecords used(m_first, m_options.skipCommonProps);
    for (OdDbEntity const* const entity : entities)
        used.add(*entity);
    return compareRecordsWhere([&used](OdDbSymbolTableRecord const& record) { return used.contains(record); });
}

bool DrawingComparison::compareRecordsWhere(std::function<bool(OdDbSymbolTableRecord const&)> const& isWanted)
{
    constexpr OdDbTableKind kKinds[] = {OdDbTableKind::kLayer, OdDbTableKind::kLinetype, OdDbTableKind::kTextStyle,
                                        OdDbTableKind::kDimStyle, OdDbTableKind::kBlock};
    long const before = m_differences;
    for (OdDbTableKind const kind : kKinds) {
        for (RecordPair const& pair : pairRecords(kind)) {
            auto const* const block = odCast<OdDbBlockTableRecord>(pair.first);
            if (!pair.first || !pair.second || (block && block->isLayout()) || !isWanted(*pair.first))
                continue;
            compareRecords(kind, pair);
            if (block)
                entitiesInOrder(pair.first->objectId(), pair.second->objectId());
        }
    }
    return m_differences == before;
}

bool DrawingComparison::wholeDrawings()
{
    long const before = m_differences;
    m_comparedEntities = 0;
    m_comparedByFields.clear();
    m_countedClass = nullptr;
    matchBlocks();
    tellHeader();
    for (OdDbTableKindInfo const& kind : odDbTableKinds())
        tellTable(kind.kind);
    for (BlockPair const& block : m_blocks)
        tellBlock(block);
    std::size_t nextEntry = 0;
    tellEntries(nextEntry);
    tellLooseObjects();
    tellEntries(nextEntry);
    tellKeptSections();
    m_blocks.clear();
    return m_differences == before;
}

} // namespace ta
