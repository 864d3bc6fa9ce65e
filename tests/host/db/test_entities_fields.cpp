// What a file holds of an entity comes back in the same order and to the last bit, and means what it should.
#include "tests/host/db/test_entities_support.h"

#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_minsert_block.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/filer/od_db_class_registry.h"

namespace {

class EntityFieldsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(EntityFieldsTest);
    CPPUNIT_TEST(classesHaveTheirFileNames);
    CPPUNIT_TEST(pointCircleArc);
    CPPUNIT_TEST(polylineWithWidthsOfItsVertices);
    CPPUNIT_TEST(polylineWithConstantWidth);
    CPPUNIT_TEST(text);
    CPPUNIT_TEST(attributeDefinition);
    CPPUNIT_TEST(attributeOfOlderFiles);
    CPPUNIT_TEST(blockReference);
    CPPUNIT_TEST(gridReference);
    CPPUNIT_TEST(filesWithoutMarkers);
    CPPUNIT_TEST_SUITE_END();

    void classesHaveTheirFileNames()
    {
        CPPUNIT_ASSERT(odDbClassRegistry::find("LWPOLYLINE") == OdDbPolyline::desc());
        CPPUNIT_ASSERT(odDbClassRegistry::find("INSERT") == OdDbBlockReference::desc());
        CPPUNIT_ASSERT(odDbClassRegistry::find("ATTDEF") == OdDbAttributeDefinition::desc());
        for (char const* const name : {"CIRCLE", "ARC", "POINT", "TEXT", "ATTRIB", "SEQEND", "LINE"})
            CPPUNIT_ASSERT_MESSAGE(name, odDbClassRegistry::find(name) != nullptr);
    }

    void pointCircleArc()
    {
        auto const point = roundTrip<OdDbPoint>(
            {"100 AcDbPoint", "10 1.1", "20 2.2", "30 3.3", "39 0.5", "210 0.0", "220 0.6", "230 0.8", "50 33.3"});
        CPPUNIT_ASSERT(point->position() == OdGePoint3d(1.1, 2.2, 3.3)); // points are in world coordinates
        CPPUNIT_ASSERT_DOUBLES_EQUAL(33.3 * OdaPI / 180, point->symbolRotation(), 1e-15);

        auto const circle = roundTrip<OdDbCircle>({"100 AcDbCircle", "39 2.0", "10 1.1", "20 2.2", "30 3.3",
                                                   "40 7.7", "210 0.0", "220 0.0", "230 -1.0"});
        CPPUNIT_ASSERT(circle->center() == OdGePoint3d(-1.1, 2.2, -3.3));

        auto const arc = roundTrip<OdDbArc>(
            {"100 AcDbCircle", "10 0.1", "20 0.2", "30 0.0", "40 2.0", "100 AcDbArc", "50 0.1", "51 90.0"});
        CPPUNIT_ASSERT(arc->endPoint() == OdGePoint3d(0.1, 2.2, 0));
        arc->setRadius(4);
        CPPUNIT_ASSERT_EQUAL(std::string("50 0.1"), writtenTags(*arc).at(8)); // other values keep their bits
    }

    void polylineWithWidthsOfItsVertices()
    {
        auto const polyline = roundTrip<OdDbPolyline>(
            {"100 AcDbPolyline", "90 3",    "70 129", "38 2.5",  "39 1.5",  "10 0.0",  "20 0.0",
             "40 0.5",           "41 0.25", "42 1.0", "10 4.0",  "20 0.0",  "40 0.0",  "41 0.0",
             "10 4.0",           "20 3.0",  "91 7",   "210 0.0", "220 0.0", "230 -1.0"});
        CPPUNIT_ASSERT(polyline->isClosed() && polyline->hasPlinegen());
        CPPUNIT_ASSERT_EQUAL(3u, polyline->numVerts());
        CPPUNIT_ASSERT_EQUAL(0.25, polyline->getEndWidthAt(0));
        CPPUNIT_ASSERT_EQUAL(0.0, polyline->getConstantWidth());
        CPPUNIT_ASSERT_EQUAL(7, polyline->getVertexIdentifierAt(2));
        CPPUNIT_ASSERT(polyline->getWorldPointAt(2) == OdGePoint3d(-4, 3, -2.5));
    }

    void polylineWithConstantWidth()
    {
        auto const polyline =
            roundTrip<OdDbPolyline>({"100 AcDbPolyline", "90 1", "70 0", "43 0.3", "10 1.0", "20 2.0"});
        CPPUNIT_ASSERT_EQUAL(0.3, polyline->getConstantWidth());
        CPPUNIT_ASSERT_EQUAL(0.3, polyline->getStartWidthAt(0));
        roundTrip<OdDbPolyline>({"100 AcDbPolyline", "90 1", "70 0", "43 0.0", "10 1.0", "20 2.0", "42 0.0"});
    }

    void text()
    {
        auto const text = roundTrip<OdDbText>({"100 AcDbText", "10 1.0", "20 2.0", "30 0.0", "40 0.2", "1 Total",
                                               "50 30.0", "41 0.9", "51 15.0", "71 2", "72 1", "11 1.5", "21 2.0",
                                               "31 0.0", "100 AcDbText", "73 3"});
        CPPUNIT_ASSERT(text->textString() == L"Total");
        CPPUNIT_ASSERT(text->horizontalMode() == OdDbTextHorizontalMode::kCenter);
        CPPUNIT_ASSERT(text->verticalMode() == OdDbTextVerticalMode::kTop);
        CPPUNIT_ASSERT(text->isMirroredInX() && !text->isMirroredInY());
        CPPUNIT_ASSERT(text->position() == OdGePoint3d(1, 2, 0)); // as the file says, until something changes
        CPPUNIT_ASSERT(text->alignmentPoint() == OdGePoint3d(1.5, 2, 0));
    }

    void attributeDefinition()
    {
        auto const definition = roundTrip<OdDbAttributeDefinition>(
            {"100 AcDbText", "10 0.0", "20 0.0", "30 0.0", "40 0.2", "1 7", "100 AcDbAttributeDefinition", "280 1",
             "3 Number?", "2 NUMBER", "70 10", "73 5", "74 2", "280 1"});
        CPPUNIT_ASSERT(definition->tag() == L"NUMBER" && definition->prompt() == L"Number?");
        CPPUNIT_ASSERT(definition->isConstant() && definition->isPreset());
        CPPUNIT_ASSERT(!definition->isInvisible() && !definition->isVerifiable());
        CPPUNIT_ASSERT(definition->lockPositionInBlock());
        CPPUNIT_ASSERT_EQUAL(5, definition->fieldLength());
        CPPUNIT_ASSERT(definition->verticalMode() == OdDbTextVerticalMode::kMiddle);
    }

    void attributeOfOlderFiles()
    {
        // Without a version in front, the one value behind the flags is the lock.
        auto const locked = roundTrip<OdDbAttribute>({"100 AcDbText", "10 0.0", "20 0.0", "30 0.0", "40 0.2",
                                                      "1 x", "100 AcDbAttribute", "2 T", "70 0", "280 1"});
        CPPUNIT_ASSERT(locked->lockPositionInBlock());
        auto const versioned = roundTrip<OdDbAttribute>({"100 AcDbText", "10 0.0", "20 0.0", "30 0.0", "40 0.2",
                                                         "1 x", "100 AcDbAttribute", "280 0", "2 T", "70 1"});
        CPPUNIT_ASSERT(!versioned->lockPositionInBlock() && versioned->isInvisible());
    }

    void blockReference()
    {
        auto const reference = roundTrip<OdDbBlockReference>({"100 AcDbBlockReference", "2 ", "10 1.0", "20 2.0",
                                                              "30 0.0", "41 2.0", "42 1.0", "43 -2.0", "50 90.0"});
        CPPUNIT_ASSERT(reference->scaleFactors() == OdGeScale3d(2, 1, -2));
        CPPUNIT_ASSERT_EQUAL(1, reference->grid().columns);
    }

    void gridReference()
    {
        auto const grid = roundTrip<OdDbMInsertBlock>(
            {"100 AcDbMInsertBlock", "2 ", "10 0.0", "20 0.0", "30 0.0", "70 5", "71 2", "44 10.0", "45 20.0"});
        CPPUNIT_ASSERT_EQUAL(5, grid->columns());
        CPPUNIT_ASSERT_EQUAL(2, grid->rows());
        CPPUNIT_ASSERT_EQUAL(20.0, grid->rowSpacing());
        // What is no number of columns or rows is kept, and counts as one.
        auto const odd = roundTrip<OdDbMInsertBlock>(
            {"100 AcDbMInsertBlock", "2 ", "10 0.0", "20 0.0", "30 0.0", "70 -3", "71 0"});
        CPPUNIT_ASSERT_EQUAL(1, odd->columns());
        CPPUNIT_ASSERT_EQUAL(1, odd->rows());
        CPPUNIT_ASSERT_THROW(odd->setColumns(0), OdError);
        CPPUNIT_ASSERT_THROW(odd->setRows(40000), OdError);

        // A record is a grid by its marker or, as older files have it, by what it holds.
        auto const classOf = [](std::initializer_list<std::string_view> lines) {
            OdDbTagList tags;
            for (std::string_view const line : lines)
                tags.put(testTag(line));
            return odDbClassRegistry::choose("INSERT", tags);
        };
        CPPUNIT_ASSERT(classOf({"100 AcDbMInsertBlock", "2 B"}) == OdDbMInsertBlock::desc());
        CPPUNIT_ASSERT(classOf({"100 AcDbBlockReference", "2 B", "71 2"}) == OdDbMInsertBlock::desc());
        CPPUNIT_ASSERT(classOf({"2 B", "70 3"}) == OdDbMInsertBlock::desc());
        CPPUNIT_ASSERT(classOf({"2 B", "70 1", "71 1"}) == OdDbBlockReference::desc());
    }

    void filesWithoutMarkers()
    {
        OdDbAttributeDefinition definition;
        readTags(definition, {"8 0", "10 1.0", "20 2.0", "30 0.0", "40 0.5", "1 A", "72 4", "11 1.0", "21 2.0",
                              "31 0.0", "3 Ask", "2 TAG", "70 2", "73 9", "74 1"});
        CPPUNIT_ASSERT(definition.isConstant() && definition.tag() == L"TAG");
        CPPUNIT_ASSERT(definition.horizontalMode() == OdDbTextHorizontalMode::kMiddle);
        CPPUNIT_ASSERT(definition.verticalMode() == OdDbTextVerticalMode::kBottom);
        CPPUNIT_ASSERT_EQUAL(9, definition.fieldLength());

        OdDbMInsertBlock reference;
        readTags(reference, {"8 0", "66 1", "2 B", "10 1.0", "20 2.0", "30 0.0", "70 3", "71 4"});
        CPPUNIT_ASSERT_EQUAL(12, reference.columns() * reference.rows());
        CPPUNIT_ASSERT(reference.extras() == nullptr);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(EntityFieldsTest);

} // namespace
