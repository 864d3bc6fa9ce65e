// Attributes and attribute definitions whose text has several lines.
#include "tests/host/db/test_block_fixture.h"
#include "tests/host/db/test_entities_support.h"

#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/filer/od_db_record_writer.h"
#include "host/db/records/od_db_text_style_table_record.h"

namespace {

template <class Attribute>
OdSmartPtr<Attribute> multiline()
{
    OdDbMTextPtr const text(new OdDbMText);
    text->setContents(L"one\\P{\\C1;two}");
    text->setLocation({4, 5, 0});
    text->setTextHeight(0.5);
    text->setRotation(OdaPI / 2);
    text->setAttachment(OdDbMTextAttachment::kMiddleCenter);
    OdSmartPtr<Attribute> attribute(new Attribute);
    attribute->setTag(L"T");
    attribute->setMTextAttribute(text);
    return attribute;
}

class MTextAttributeTest : public BlockFixture
{
    CPPUNIT_TEST_SUITE(MTextAttributeTest);
    CPPUNIT_TEST(keepsWhatFilesHold);
    CPPUNIT_TEST(unknownEmbeddedObjectsStayWhole);
    CPPUNIT_TEST(handsOutCopies);
    CPPUNIT_TEST(updatesItsOwnText);
    CPPUNIT_TEST(transformsWithItsText);
    CPPUNIT_TEST(becomesOneLineAgain);
    CPPUNIT_TEST(followsTheNameOfTheStyle);
    CPPUNIT_TEST_SUITE_END();

    void keepsWhatFilesHold()
    {
        auto const attribute = roundTrip<OdDbAttribute>({"100 AcDbText",
                                                         "10 0.0",
                                                         "20 0.0",
                                                         "30 0.0",
                                                         "40 0.2",
                                                         "1 one two",
                                                         "100 AcDbAttribute",
                                                         "280 0",
                                                         "2 T",
                                                         "70 0",
                                                         "280 1",
                                                         "71 2",
                                                         "72 0",
                                                         "11 1.0",
                                                         "21 2.0",
                                                         "31 0.0",
                                                         "101 Embedded Object",
                                                         "10 1.0",
                                                         "20 2.0",
                                                         "30 0.0",
                                                         "40 0.3",
                                                         "41 9.0",
                                                         "46 0.0",
                                                         "71 1",
                                                         "72 5",
                                                         "1 one\\Ptwo",
                                                         "7 ",
                                                         "210 0.0",
                                                         "220 0.0",
                                                         "230 1.0",
                                                         "11 1.0",
                                                         "21 0.0",
                                                         "31 0.0",
                                                         "42 2.5",
                                                         "43 1.5",
                                                         "73 1",
                                                         "44 1.0",
                                                         "91 17"});
        CPPUNIT_ASSERT(attribute->isMTextAttribute() && attribute->lockPositionInBlock());
        CPPUNIT_ASSERT_EQUAL(0.2, attribute->height());
        OdDbMTextPtr const text = attribute->getMTextAttribute();
        CPPUNIT_ASSERT(text->contents() == L"one\\Ptwo");
        CPPUNIT_ASSERT_EQUAL(0.3, text->textHeight());
        CPPUNIT_ASSERT_EQUAL(9.0, text->width());
        auto const before = writtenTags(*attribute);
        attribute->setMTextAttribute(text); // what it does not know stays too
        CPPUNIT_ASSERT_EQUAL(joined(before), joined(writtenTags(*attribute)));
    }

    void unknownEmbeddedObjectsStayWhole()
    {
        OdDbText text;
        readTags(text, {"100 AcDbText", "10 1.0", "20 2.0", "30 0.0", "40 0.2", "1 a", "101 Embedded Object",
                        "10 7.0", "40 3.0", "1 b", "100 AcDbText", "73 2"});
        CPPUNIT_ASSERT_EQUAL(0.2, text.height());
        CPPUNIT_ASSERT(text.textString() == L"a" && text.verticalMode() == OdDbTextVerticalMode::kMiddle);
        OdDbTagList written;
        odDbWriteRecord(text, written);
        int embedded = 0;
        for (OdDbTag const tag : written)
            embedded += tag.code == 101 || (tag.code == 10 && tag.real == 7.0) || tag.is(1, "b") ? 1 : 0;
        CPPUNIT_ASSERT_EQUAL(3, embedded);
    }

    void handsOutCopies()
    {
        auto const attribute = multiline<OdDbAttribute>();
        OdDbMTextPtr const copy = attribute->getMTextAttribute();
        CPPUNIT_ASSERT(!copy->isDBRO());
        copy->setContents(L"other");
        CPPUNIT_ASSERT(attribute->getMTextAttribute()->contents() == L"one\\P{\\C1;two}");
        attribute->setMTextAttribute(copy);
        CPPUNIT_ASSERT(attribute->getMTextAttribute()->contents() == L"other");
        CPPUNIT_ASSERT(attribute->textString().isEmpty()); // until it is updated
        CPPUNIT_ASSERT(OdDbAttributePtr(new OdDbAttribute)->getMTextAttribute().isNull());
    }

    static void assertUpdated(OdDbAttributeBase const& attribute)
    {
        CPPUNIT_ASSERT(attribute.textString() == L"one two");
        CPPUNIT_ASSERT_EQUAL(0.5, attribute.height());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI / 2, attribute.rotation(), 1e-12);
        CPPUNIT_ASSERT(attribute.horizontalMode() == OdDbTextHorizontalMode::kCenter);
        CPPUNIT_ASSERT(attribute.verticalMode() == OdDbTextVerticalMode::kMiddle);
        CPPUNIT_ASSERT(attribute.alignmentPoint() == OdGePoint3d(4, 5, 0));
    }

    void updatesItsOwnText()
    {
        auto const attribute = multiline<OdDbAttribute>();
        attribute->updateMTextAttribute();
        assertUpdated(*attribute);
        CPPUNIT_ASSERT(joined(writtenTags(*attribute)).find("\n71 2\n11 4.0\n21 5.0\n") != std::string::npos);
        auto const definition = multiline<OdDbAttributeDefinition>();
        definition->updateMTextAttributeDefinition();
        assertUpdated(*definition);
        CPPUNIT_ASSERT(joined(writtenTags(*definition)).find("\n71 4\n") != std::string::npos);
    }

    void transformsWithItsText()
    {
        auto const attribute = multiline<OdDbAttribute>();
        attribute->setPosition({4, 5, 0});
        OdGeMatrix3d const change =
            OdGeMatrix3d::rotation(OdaPI / 2, OdGeVector3d::kZAxis) * OdGeMatrix3d::scaling(2);
        SampledOutline const expected(*attribute, change);
        CPPUNIT_ASSERT_EQUAL(eOk, attribute->transformBy(change));
        CPPUNIT_ASSERT(attribute->position() == OdGePoint3d(-10, 8, 0));
        OdDbMTextPtr const text = attribute->getMTextAttribute();
        CPPUNIT_ASSERT(text->location() == OdGePoint3d(-10, 8, 0));
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI, text->rotation(), 1e-12);
        CPPUNIT_ASSERT_EQUAL(1.0, text->textHeight());
        CPPUNIT_ASSERT(expected.exactDistanceTo(SampledOutline(*attribute)) < 1e-12);

        OdGeMatrix3d flat;
        flat.entry[1][1] = 0;
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, attribute->transformBy(flat));
        CPPUNIT_ASSERT(attribute->position() == OdGePoint3d(-10, 8, 0));
    }

    void becomesOneLineAgain()
    {
        auto const attribute = multiline<OdDbAttribute>();
        attribute->setMTextAttribute(nullptr);
        CPPUNIT_ASSERT(!attribute->isMTextAttribute());
        std::string const written = joined(writtenTags(*attribute));
        CPPUNIT_ASSERT_MESSAGE(written, written.find("101 ") == std::string::npos);
        CPPUNIT_ASSERT_MESSAGE(written, written.find("\n71 1\n") != std::string::npos);
    }

    void followsTheNameOfTheStyle()
    {
        OdSmartPtr<OdDbTextStyleTableRecord> const style(new OdDbTextStyleTableRecord);
        style->setName(L"Notes");
        m_db->getTextStyleTableId().open<OdDbSymbolTable>(OdDb::kForWrite)->add(style);
        auto const attribute = multiline<OdDbAttributeDefinition>();
        OdDbMTextPtr const text = attribute->getMTextAttribute();
        text->setTextStyle(style->objectId());
        attribute->setMTextAttribute(text);
        modelSpace()->appendOdDbEntity(attribute);
        style->upgradeOpen();
        style->setName(L"Remarks");
        std::string const written = joined(writtenTags(*attribute));
        CPPUNIT_ASSERT_MESSAGE(written, written.find("two}\n7 Remarks\n") != std::string::npos);
        OdDbDatabasePtr const other = new OdDbDatabase;
        text->setTextStyle(other->getTEXTSTYLE());
        CPPUNIT_ASSERT_THROW(attribute->setMTextAttribute(text), OdError);
        CPPUNIT_ASSERT(attribute->getMTextAttribute()->textStyle() == style->objectId());
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(MTextAttributeTest);

} // namespace
