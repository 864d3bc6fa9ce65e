// What stands in dictionaries, and what is left: objects that no dictionary holds, sections and records that the
// host does not know.
#include "testapi/ta_drawing_comparison_fields.h"
#include "testapi/ta_drawing_comparison_teller.h"

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_drawing_comparison";

/// Sections that are no part of the drawing.
constexpr std::string_view s_sectionsLeftOut[] = {
    "CLASSES",        // names and counts of classes, which follow from the objects
    "THUMBNAILIMAGE", // a picture of the drawing, drawn anew on saving
};

bool wasAddedOnOpening(OdDbStub const* stub)
{
    return stub->database->isFromTemplate(stub->handle);
}

Difference differenceOf(OdString const& name, OdString const& value1, OdString const& value2)
{
    return {.expression = nullptr,
            .message = L"Incorrect " + name + L" value",
            .expected = value2,
            .actual = value1,
            .part = {},
            .place = {s_area, __LINE__}};
}

/// Tags by the name of what they were kept for; parts without any are left out.
template <class Parts>
std::map<std::string, OdDbTagList> tagsByName(Parts const& parts)
{
    std::map<std::string, OdDbTagList> result;
    for (auto const& part : parts)
        if (!part.tags.empty() && std::ranges::find(s_sectionsLeftOut, part.name) == std::end(s_sectionsLeftOut))
            part.tags.writeTo(result[part.name]);
    return result;
}

} // namespace

void DrawingComparison::compareObjects(OdString const& place, OdString const& name, OdDbObject const& object1,
                                       OdDbObject const& object2)
{
    Teller teller(place, object1, object2, this);
    teller.setName(name);
    teller.setFileFields(true);
    if (object1.isA() != object2.isA())
        return teller.differs(differenceOf(L"class", classNameOf(object1), classNameOf(object2)));
    if (!m_bridge->same(object1.ownerId(), object2.ownerId()))
        teller.differs(
            differenceOf(L"owner", Comparison::textOf(object1.ownerId()), Comparison::textOf(object2.ownerId())));
    if (odCast<OdDbDictionary>(&object1)) // its entries are told one by one
        m_fields->compare(object1, object2, FieldComparison::kWithoutTails, teller);
    else if (!m_fields->areIdentical(object1, object2))
        m_fields->compare(object1, object2, FieldComparison::kAll, teller);
}

void DrawingComparison::tellEntries(std::size_t& next)
{
    while (next < m_bridge->entries().size()) {
        DrawingBridge::Entry const entry = m_bridge->entries()[next++]; // the list can grow
        if (entry.first && entry.second && entry.isNew) {
            compareObjects(entry.dictionary, entry.key, *entry.first->object, *entry.second->object);
        } else if (entry.first && entry.second) {
            OdDbObjectId const id1 = entry.first->object->objectId(), id2 = entry.second->object->objectId();
            if (m_bridge->same(id1, id2))
                continue;
            Teller teller(entry.dictionary, *entry.first->object, *entry.second->object, this);
            teller.setName(entry.key);
            teller.setFileFields(true);
            teller.differs(differenceOf(L"entry", Comparison::textOf(id1), Comparison::textOf(id2)));
        } else if (OdDbStub const* const stub = entry.first ? entry.first : entry.second;
                   !wasAddedOnOpening(stub)) {
            tellOnly(entry.dictionary, *stub->object, entry.key, entry.first != nullptr);
        }
    }
}

/// Objects of no dictionary are paired by handle. What belongs to something that only one drawing has is told with
/// that.
void DrawingComparison::tellLooseObjects()
{
    OdString const place = L"objects";
    auto const isLoose = [this](OdDbStub const* stub) { return !stub->erased && !m_bridge->isPlaced(stub); };
    auto const tellMissing = [&](OdDbStub const* stub, bool isInFirst) {
        OdDbObjectId const owner = stub->object->ownerId();
        if (!wasAddedOnOpening(stub) && (owner.isErased() || m_bridge->hasPartner(owner.stub())))
            tellOnly(place, *stub->object, {}, isInFirst);
    };
    for (OdDbStub const* const stub : m_first.fileObjects()) {
        if (!isLoose(stub))
            continue;
        OdDbObjectId const other = DrawingBridge::find(m_second, stub->handle);
        bool const hasOther =
            !other.isErased() && isLoose(other.stub()) && other.stub()->object->isA() == stub->object->isA();
        if (!hasOther) {
            tellMissing(stub, true);
            continue;
        }
        m_bridge->pair(*stub->object, *other.stub()->object);
        compareObjects(place, {}, *stub->object, *other.stub()->object);
    }
    for (OdDbStub const* const stub : m_second.fileObjects())
        if (isLoose(stub))
            tellMissing(stub, false);
}

void DrawingComparison::tellKeptTags(OdString const& place, OdDbTagList const* tags1, OdDbTagList const* tags2)
{
    using EKind = DrawingDifference::EKind;
    DrawingDifference difference;
    difference.place = place;
    difference.isFileField = true;
    if (!tags1 || !tags2) {
        difference.kind = tags1 ? EKind::kOnlyInFirst : EKind::kOnlyInSecond;
        return tell(difference);
    }
    TagBuffer buffer1, buffer2;
    tags1->writeTo(buffer1);
    tags2->writeTo(buffer2);
    TagComparison(*m_bridge, m_options.eps)
        .compare(buffer1, buffer2, [&](OdDbTag const* tag1, OdDbTag const* tag2) {
            difference.property =
                differenceOf(odFormat(L"group %d", tag1 ? tag1->code : tag2->code),
                             TagComparison::textOf(tag1, m_first), TagComparison::textOf(tag2, m_second));
            tell(difference);
        });
}

void DrawingComparison::tellKeptSections()
{
    OdDbFileContent const &content1 = m_first.fileContent(), &content2 = m_second.fileContent();
    auto const tellParts = [this](auto const& parts1, auto const& parts2, wchar_t const* kind) {
        forEachKey(tagsByName(parts1), tagsByName(parts2),
                   [&](std::string const& name, OdDbTagList const* tags1, OdDbTagList const* tags2) {
                       tellKeptTags(kind + OdString::fromUtf8(name), tags1, tags2);
                   });
    };
    tellParts(content1.sections, content2.sections, L"section ");
    tellParts(content1.tables, content2.tables, L"table ");
}

} // namespace ta
