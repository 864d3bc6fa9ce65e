// Nothing that a drawing file holds of an entity escapes the comparison of drawings, and nothing is told twice: by
// a row of the entity comparison and as a field of files.
#include "testapi/ta_drawing_comparison.h"
#include "tests/testapi/compare_cases.h"

#include <cppunit/extensions/HelperMacros.h>

#include <map>
#include <sstream>

namespace {

struct Counts
{
    int byRows = 0;
    int byFields = 0;
    std::string texts;
};

Counts differencesOf(OdDbDatabase const& first, OdDbDatabase const& second)
{
    Counts counts;
    ta::DrawingComparison comparison(first, second, {}, [&counts](ta::DrawingDifference const& difference) {
        ++(difference.isFileField ? counts.byFields : counts.byRows);
        counts.texts += "\n  " + difference.text().toUtf8();
    });
    comparison.wholeDrawings();
    return counts;
}

void assertToldOnce(Counts const& counts, std::string const& about)
{
    CPPUNIT_ASSERT_MESSAGE(about + ": nothing told", counts.byRows + counts.byFields > 0);
    bool const isOnce = counts.byRows > 0 ? counts.byFields == 0 : counts.byFields == 1;
    CPPUNIT_ASSERT_MESSAGE(about + ": told more than once" + counts.texts, isOnce);
}

/// What the comparison of entities knows, one entity of each class, made anew for each drawing. Vertices come as
/// parts.
std::map<std::string, CompareCase> samples()
{
    std::vector<CompareCase> cases;
    addCurveCases(cases);
    addVertexCases(cases);
    addTextCases(cases);
    std::map<std::string, CompareCase> result;
    for (CompareCase const& one : cases)
        if (!one.entityClass->isDerivedFrom(OdDbVertex::desc()))
            result.emplace(one.entityClass->name().toUtf8(), one);
    return result;
}

template <class Record>
void addRecord(OdDbDatabase& drawing, OdDbTableKind kind, wchar_t const* name)
{
    OdSmartPtr<Record> const record(new Record);
    record->setName(name);
    drawing.getTableId(kind).open<OdDbSymbolTable>(OdDb::kForWrite)->add(record.get());
}

OdDbDatabasePtr drawingWith(CompareCase const& sample)
{
    OdDbDatabasePtr drawing(new OdDbDatabase);
    for (wchar_t const* const name : {L"DOOR", L"WINDOW"})
        addRecord<OdDbBlockTableRecord>(*drawing, OdDbTableKind::kBlock, name);
    addRecord<OdDbTextStyleTableRecord>(*drawing, OdDbTableKind::kTextStyle, L"NOTES");
    addRecord<OdDbLayerTableRecord>(*drawing, OdDbTableKind::kLayer, L"WALLS");
    OdDbEntityPtr const entity = sample.make(*drawing);
    drawing->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite)->appendOdDbEntity(entity.get());
    return drawing;
}

OdDbEntity& onlyEntity(OdDbDatabase const& drawing)
{
    auto const space = drawing.getModelSpaceId().open<OdDbBlockTableRecord>();
    return static_cast<OdDbEntity&>(*space->entities().front()->object);
}

/// The entity and its first part of each class.
std::vector<OdDbEntity*> wholeAndParts(OdDbEntity& entity)
{
    std::map<OdRxClass const*, OdDbEntity*> parts;
    for (OdDbStub* const stub : entity.subentities())
        parts.emplace(stub->object->isA(), static_cast<OdDbEntity*>(stub->object));
    std::vector<OdDbEntity*> all{&entity};
    for (auto const& [unused, part] : parts)
        all.push_back(part);
    return all;
}

template <class T>
void withChanged(void* place, T const& changed, std::function<void()> const& check)
{
    T& value = *static_cast<T*>(place);
    T const before = value;
    value = changed;
    check();
    value = before;
}

template <class T>
void withEachBit(void* place, std::function<void()> const& check)
{
    for (int bit = 1; bit < 256; bit *= 2)
        withChanged<T>(place, static_cast<T>(*static_cast<T*>(place) ^ static_cast<T>(bit)), check);
}

void withEachCoordinate(void* place, int count, std::function<void()> const& check)
{
    for (int i = 0; i < count; ++i) {
        double* const coordinate = static_cast<double*>(place) + i;
        withChanged(coordinate, *coordinate + 0.25, check);
    }
}

/// Calls the check for each way in which the field alone can differ.
void withEachChange(OdDbField const& field, OdDbEntity& entity, std::function<void()> const& check)
{
    void* const place = field.place(&entity);
    switch (field.kind) {
    case OdDbFieldKind::kReal: return withEachCoordinate(place, 1, check);
    case OdDbFieldKind::kPoint2: return withEachCoordinate(place, 2, check);
    case OdDbFieldKind::kPoint3: return withEachCoordinate(place, 3, check);
    case OdDbFieldKind::kAngle: {
        double const radians = static_cast<OdDbAngle*>(place)->radians();
        return withChanged(place, OdDbAngle::ofRadians(radians + 0.25), check);
    }
    case OdDbFieldKind::kInt8: return withEachBit<std::int8_t>(place, check);
    case OdDbFieldKind::kInt16: return withEachBit<std::int16_t>(place, check);
    case OdDbFieldKind::kInt32: return withEachBit<std::int32_t>(place, check);
    case OdDbFieldKind::kBool: return withChanged(place, !*static_cast<bool*>(place), check);
    case OdDbFieldKind::kString: return withChanged(place, *static_cast<OdString*>(place) + L"x", check);
    case OdDbFieldKind::kReference: return withChanged(place, entity.database()->getModelSpaceId(), check);
    case OdDbFieldKind::kName: {
        // The last record: the first may stand for none.
        OdDbObjectId const id(entity.database()->table(field.table).records().back());
        CPPUNIT_ASSERT(!(id == *static_cast<OdDbObjectId*>(place)));
        return withChanged(place, id, check);
    }
    }
}

using Tags = std::vector<std::pair<int, std::string>>;

Tags tagsOf(std::string const& text)
{
    Tags tags;
    std::istringstream lines(text);
    for (std::string code, value; std::getline(lines, code) && std::getline(lines, value);)
        tags.emplace_back(std::stoi(code), value);
    return tags;
}

std::string textOf(Tags const& tags)
{
    std::string text;
    for (auto const& [code, value] : tags)
        text += std::to_string(code) + "\n" + value + "\n";
    return text;
}

bool isStructure(int code)
{
    constexpr int kStructure[] = {0, 5, 66, 67, 100, 101, 102, 330, 360, 1001};
    return std::ranges::find(kStructure, code) != std::end(kStructure);
}

std::string changedValue(int code, std::string const& value)
{
    switch (OdDxfCode::_getType(code)) {
    case OdDxfCode::kReal:
    case OdDxfCode::kAngle:
    case OdDxfCode::kPoint: return std::to_string(std::stod(value) + 0.25);
    case OdDxfCode::kBool:
    case OdDxfCode::kInt16:
    case OdDxfCode::kInt32:
    case OdDxfCode::kInt64: return std::to_string(std::stoll(value) ^ 1);
    default: return value + "x";
    }
}

class DrawingComparisonFieldsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(DrawingComparisonFieldsTest);
    CPPUNIT_TEST(hasSamplesOfAllKnownClasses);
    CPPUNIT_TEST(noticesEveryField);
    CPPUNIT_TEST(noticesExtendedData);
    CPPUNIT_TEST(noticesEveryValueOfFiles);
    CPPUNIT_TEST_SUITE_END();

    void hasSamplesOfAllKnownClasses()
    {
        auto const all = samples();
        CPPUNIT_ASSERT_EQUAL(std::size_t(20), all.size());
        for (auto const& [name, sample] : all) {
            Counts const counts = differencesOf(*drawingWith(sample), *drawingWith(sample));
            CPPUNIT_ASSERT_EQUAL_MESSAGE(name, std::string(), counts.texts);
            CPPUNIT_ASSERT_MESSAGE(name, ta::Comparison::knows(sample.entityClass));
        }
    }

    void noticesEveryField()
    {
        for (auto const& [name, sample] : samples()) {
            OdDbDatabasePtr const first = drawingWith(sample), second = drawingWith(sample);
            for (OdDbEntity* const entity : wholeAndParts(onlyEntity(*second)))
                for (OdDbSection const& section : entity->fieldTable().sections()) {
                    if (section.isWritten && !section.isWritten(*entity))
                        continue;
                    for (OdDbField const& field : section.fields)
                        withEachChange(field, *entity, [&] {
                            assertToldOnce(differencesOf(*first, *second),
                                           name + ", " + entity->isA()->name().toUtf8() + ", group " +
                                               std::to_string(field.code) + " of " + std::string(section.marker));
                        });
                }
        }
    }

    void noticesExtendedData()
    {
        OdDbTagList data;
        data.text(1001, "MYAPP");
        data.integer(1070, 7);
        for (auto const& [name, sample] : samples()) {
            OdDbDatabasePtr const first = drawingWith(sample), second = drawingWith(sample);
            for (OdDbEntity* const entity : wholeAndParts(onlyEntity(*second))) {
                entity->upgradeOpen();
                entity->setExtendedData(data);
                Counts const counts = differencesOf(*first, *second);
                CPPUNIT_ASSERT_EQUAL_MESSAGE(name + counts.texts, 1, counts.byFields);
                CPPUNIT_ASSERT_EQUAL_MESSAGE(name + counts.texts, 0, counts.byRows);
                OdDbTagList none;
                none.text(1001, "MYAPP");
                entity->setExtendedData(none);
            }
        }
    }

    /// Tails too: what a value of a file changes in the drawing is told.
    void noticesEveryValueOfFiles()
    {
        for (auto const& [name, sample] : samples()) {
            Tags const tags = tagsOf(dxf::writeBytes(*drawingWith(sample)));
            auto const begin = std::ranges::find(tags, std::pair<int, std::string>(2, "ENTITIES"));
            auto const end = std::find(begin, tags.end(), std::pair<int, std::string>(0, "ENDSEC"));
            OdDbDatabasePtr const first = dxf::readBytes(L"first.dxf", textOf(tags));
            bool isEndMark = false; // which shows nothing
            for (auto it = begin + 1; it != end; ++it) {
                if (it->first == 0)
                    isEndMark = it->second == "SEQEND";
                if (isEndMark || isStructure(it->first))
                    continue;
                Tags changed = tags;
                std::string& value = changed[static_cast<std::size_t>(it - tags.begin())].second;
                value = changedValue(it->first, value);
                OdDbDatabasePtr const second = dxf::readBytes(L"second.dxf", textOf(changed));
                Counts const counts = differencesOf(*first, *second);
                bool const isTold = counts.byRows + counts.byFields > 0;
                std::string const about = name + ", group " + std::to_string(it->first) + ": " + value;
                if (isTold)
                    assertToldOnce(counts, about);
                else // values that follow from others are not read
                    CPPUNIT_ASSERT_MESSAGE(about + ": nothing told",
                                           dxf::writeBytes(*first) == dxf::writeBytes(*second));
            }
        }
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(DrawingComparisonFieldsTest);

} // namespace
