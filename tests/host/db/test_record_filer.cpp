// A record that is read and written again keeps every tag, whatever the host makes of it.
#include "host/db/entities/od_db_line.h"
#include "host/db/filer/od_db_record_reader.h"
#include "host/db/filer/od_db_record_writer.h"
#include "host/db/od_db_raw_object.h"
#include "host/db/records/od_db_block_table_record.h"
#include "tests/host/db/record_lines.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class RecordFilerTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(RecordFilerTest);
    CPPUNIT_TEST(keepsEveryTagOfAKnownClassInPlace);
    CPPUNIT_TEST(keepsEveryTagOfAnUnknownClass);
    CPPUNIT_TEST(readsRecordsWithoutMarkers);
    CPPUNIT_TEST(leavesOutReferencesToErasedObjects);
    CPPUNIT_TEST(refusesValuesOfTheWrongKindButKeepsThem);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database{new OdDbDatabase};

    void readInto(OdDbObject& object, std::string const& lines, bool addToModelSpace)
    {
        DatabaseResolver resolver(*m_database);
        OdDbRecordReader reader(object, resolver);
        for (OdDbTag const tag : tagsOf(lines))
            reader.put(tag);
        m_database->addOdDbObject(&object, addToModelSpace ? m_database->getModelSpaceId() : OdDbObjectId(),
                                  reader.handle());
    }

    std::string written(OdDbObject const& object)
    {
        OdDbTagList tags;
        odDbWriteRecord(object, tags);
        return linesOf(tags);
    }

    std::string modelSpace() const { return m_database->getModelSpaceId().getHandle().ascii().toUtf8(); }

    void checkRound(OdDbObjectPtr const& object, std::string const& name, std::string const& lines)
    {
        readInto(*object, lines, true);
        CPPUNIT_ASSERT_EQUAL("0 " + name + "\n" + lines, written(*object));
    }

public:
    void keepsEveryTagOfAKnownClassInPlace()
    {
        checkRound(
            new OdDbLine, "LINE",
            "5 ABC0\n102 {ACAD_XDICTIONARY\n360 ABC1\n102 }\n102 {ACAD_REACTORS\n330 ABC2\n330 ABC3\n102 }\n"
            "102 {SOMEONE\n40 1.5\n102 }\n330 " +
                modelSpace() +
                "\n100 AcDbEntity\n8 0\n62 3\n420 255\n370 25\n48 0\n60 1\n347 ABC4\n999 a comment\n"
                "100 AcDbLine\n39 0\n10 1\n20 2\n30 3\n11 4\n21 5\n31 6\n210 0\n220 0\n230 1\n302 unknown\n"
                "102 {INSIDE\n10 7\n102 }\n100 AcDbMystery\n10 9\n1 text\n"
                "1001 ACAD\n1000 data\n1040 2.5\n1001 OTHER\n1070 7\n");
    }

    void keepsEveryTagOfAnUnknownClass()
    {
        checkRound(new OdDbRawEntity("HOLOGRAM"), "HOLOGRAM",
                   "5 ABC0\n330 " + modelSpace() +
                       "\n100 AcDbEntity\n8 0\n100 AcDbHologram\n70 1\n10 0.1\n20 0.2\n30 0.3\n340 FFFF\n"
                       "100 AcDbMore\n70 2\n1001 ACAD\n1070 3\n");
    }

    void readsRecordsWithoutMarkers()
    {
        OdDbLinePtr const line(new OdDbLine);
        readInto(*line, "5 ABC0\n8 0\n62 1\n10 1\n20 2\n11 3\n21 4\n", true);
        CPPUNIT_ASSERT(line->endPoint() == OdGePoint3d(3, 4, 0));
        CPPUNIT_ASSERT_EQUAL(1, int(line->color().colorIndex()));
        CPPUNIT_ASSERT_EQUAL("0 LINE\n5 ABC0\n330 " + modelSpace() +
                                 "\n100 AcDbEntity\n8 0\n62 1\n100 AcDbLine\n10 1\n20 2\n30 0\n11 3\n21 4\n31 0\n",
                             written(*line));
    }

    void leavesOutReferencesToErasedObjects()
    {
        OdDbLinePtr const line(new OdDbLine);
        readInto(*line, "5 ABC0\n102 {ACAD_REACTORS\n330 ABC2\n330 ABC3\n102 }\n100 AcDbEntity\n8 0\n", true);
        OdDbObjectPtr const reactor(new OdDbRawObject("THING"));
        readInto(*reactor, "5 ABC2\n", false);
        CPPUNIT_ASSERT(written(*line).find("330 ABC2\n330 ABC3") != std::string::npos);
        reactor->erase();
        CPPUNIT_ASSERT(written(*line).find("{ACAD_REACTORS\n330 ABC3\n102 }") != std::string::npos);
    }

    void refusesValuesOfTheWrongKindButKeepsThem()
    {
        OdDbLinePtr const line(new OdDbLine);
        DatabaseResolver resolver(*m_database);
        OdDbRecordReader reader(*line, resolver);
        reader.put(OdDbTag::ofText(100, "AcDbLine"));
        reader.put(OdDbTag::ofText(10, "not a number"));
        CPPUNIT_ASSERT(line->startPoint() == OdGePoint3d());
        CPPUNIT_ASSERT_EQUAL(std::string("10 not a number\n"), linesOf(line->extras()->sections.at(0).tags));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(RecordFilerTest);

} // namespace
