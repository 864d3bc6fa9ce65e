// Multiline texts: what files hold of them, where their lines stand, and what transformations do to them.
#include "tests/host/db/test_block_fixture.h"
#include "tests/host/db/test_entities_support.h"

#include "host/db/audit/od_db_audit.h"
#include "host/db/entities/od_db_mtext.h"
#include "host/db/entities/od_db_plain_lines.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/filer/od_db_class_registry.h"

namespace {

constexpr double kNear = 1e-12;
double const kRightAngle = OdaPI / 2;

void assertNear(OdGePoint3d const& expected, OdGePoint3d const& actual)
{
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, expected.distanceTo(actual), 1e-9);
}

void assertNear(OdGeVector3d const& expected, OdGeVector3d const& actual)
{
    CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, (expected - actual).length(), kNear);
}

void assertBox(OdGePoint3d const& low, OdGePoint3d const& high, OdDbEntity const& entity)
{
    OdGeExtents3d const box = entity.extents();
    assertNear(low, box.minPoint());
    assertNear(high, box.maxPoint());
}

/// Two lines of 2 and 4 characters, 1.7 and 3.4 wide; the block is 1 + 5/3 high.
OdDbMTextPtr twoLines()
{
    OdDbMTextPtr const text(new OdDbMText);
    text->setContents(L"ab\\P{\\C1;cdef}");
    text->setLocation({10, 20, 5});
    return text;
}

class MTextTest : public BlockFixture
{
    CPPUNIT_TEST_SUITE(MTextTest);
    CPPUNIT_TEST(keepsWhatFilesHold);
    CPPUNIT_TEST(keepsThePiecesOfItsContents);
    CPPUNIT_TEST(theLastDirectionOfAFileCounts);
    CPPUNIT_TEST(directionAndRotationAreOne);
    CPPUNIT_TEST(modesFollowFromTheAttachment);
    CPPUNIT_TEST(refusesWhatItCannotBe);
    CPPUNIT_TEST(columnsFollowTheText);
    CPPUNIT_TEST(plainText);
    CPPUNIT_TEST(framesHoldTheLines);
    CPPUNIT_TEST(transformationsCarryTheFrame);
    CPPUNIT_TEST(scalesUnevenly);
    CPPUNIT_TEST(mirroringTurnsTheNormal);
    CPPUNIT_TEST(explodesIntoLines);
    CPPUNIT_TEST(takesTheDefaultsOfTheDrawing);
    CPPUNIT_TEST(auditMendsWhatIsWrong);
    CPPUNIT_TEST_SUITE_END();

    void keepsWhatFilesHold()
    {
        CPPUNIT_ASSERT(odDbClassRegistry::find("MTEXT") == OdDbMText::desc());
        auto const text = roundTrip<OdDbMText>({"100 AcDbMText", "10 1.1",  "20 2.2",
                                                "30 3.3",        "40 0.2",  "41 7.5",
                                                "46 0.0",        "71 6",    "72 5",
                                                "1 a\\Pb",       "7 ",      "210 0.0",
                                                "220 0.0",       "230 1.0", "11 0.6",
                                                "21 0.8",        "31 0.0",  "42 1.7",
                                                "43 0.9",        "73 2",    "44 1.5",
                                                "90 1",          "63 5",    "421 255",
                                                "45 1.25",       "441 3",   "101 Embedded Object",
                                                "70 1",          "10 0.6",  "20 0.8",
                                                "30 0.0",        "11 1.1",  "21 2.2",
                                                "31 3.3",        "40 7.5",  "41 0.0",
                                                "71 2",          "72 1",    "44 7.5"});
        CPPUNIT_ASSERT(text->contents() == L"a\\Pb");
        assertNear({1.1, 2.2, 3.3}, text->location());
        CPPUNIT_ASSERT_EQUAL(0.2, text->textHeight()); // not what stands in the embedded object
        CPPUNIT_ASSERT_EQUAL(7.5, text->width());
        CPPUNIT_ASSERT_EQUAL(1.5, text->lineSpacingFactor());
        CPPUNIT_ASSERT(text->attachment() == OdDbMTextAttachment::kMiddleRight);
        CPPUNIT_ASSERT_DOUBLES_EQUAL(std::atan2(0.8, 0.6), text->rotation(), kNear);
    }

    void keepsThePiecesOfItsContents()
    {
        std::string const piece(250, 'x');
        std::string const three = "3 " + piece;
        auto const read = roundTrip<OdDbMText>(
            {"100 AcDbMText", "10 0.0", "20 0.0", "30 0.0", "40 1.0", "71 1", three, "3 ab", "1 \xC3\xA9nd"});
        CPPUNIT_ASSERT_EQUAL(std::size_t(255), std::size_t(read->contents().getLength()));
        CPPUNIT_ASSERT(read->contents().str().ends_with(L"xab\u00e9nd"));

        OdDbMText text;
        text.setContents(OdString(std::wstring(500, L'x') + L"y"));
        std::string const written = joined(writtenTags(text));
        CPPUNIT_ASSERT(written.find(three + '\n' + three + "\n1 y\n") != std::string::npos);
        text.setContents(OdString(std::wstring(250, L'x')));
        CPPUNIT_ASSERT(joined(writtenTags(text)).find("71 1\n1 " + piece + '\n') != std::string::npos);
    }

    void theLastDirectionOfAFileCounts()
    {
        auto const angleLast =
            roundTrip<OdDbMText>({"100 AcDbMText", "10 0.0", "20 0.0", "30 0.0", "40 1.0", "71 1", "1 a", "11 0.0",
                                  "21 2.0", "31 0.0", "42 3.0", "50 180.0", "73 1"});
        assertNear({-1, 0, 0}, angleLast->direction());
        auto const vectorLast = roundTrip<OdDbMText>({"100 AcDbMText", "10 0.0", "20 0.0", "30 0.0", "40 1.0",
                                                      "71 1", "1 a", "50 180.0", "11 0.0", "21 2.0", "31 0.0"});
        assertNear({0, 1, 0}, vectorLast->direction());
        auto const angleAlone = roundTrip<OdDbMText>({"100 AcDbMText", "10 0.0", "20 0.0", "30 0.0", "40 1.0",
                                                      "71 1", "1 a", "210 0.0", "220 0.0", "230 -1.0", "50 90.0"});
        assertNear({0, 1, 0}, angleAlone->direction());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(kRightAngle, angleAlone->rotation(), kNear);
    }

    void directionAndRotationAreOne()
    {
        OdDbMText text;
        text.setNormal({0, -1, 0}); // its plane has the axes X and Z
        assertNear({1, 0, 0}, text.direction());
        text.setRotation(kRightAngle);
        assertNear({0, 0, 1}, text.direction());
        text.setDirection({-3, 0, 0});
        assertNear({-1, 0, 0}, text.direction());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(OdaPI, text.rotation(), kNear);
        text.setNormal({0, 0, -4});
        assertNear({0, 0, -1}, text.normal());
        assertNear({-1, 0, 0}, text.direction());
        CPPUNIT_ASSERT_DOUBLES_EQUAL(0.0, text.rotation(), kNear); // the X axis of this plane
    }

    void modesFollowFromTheAttachment()
    {
        OdDbMText text;
        text.setAttachment(OdDbMTextAttachment::kBottomCenter);
        CPPUNIT_ASSERT(text.horizontalMode() == OdDbTextHorizontalMode::kCenter);
        CPPUNIT_ASSERT(text.verticalMode() == OdDbTextVerticalMode::kBottom);
        text.setAttachment(OdDbMTextAttachment::kTopRight);
        CPPUNIT_ASSERT(text.horizontalMode() == OdDbTextHorizontalMode::kRight);
        CPPUNIT_ASSERT(text.verticalMode() == OdDbTextVerticalMode::kTop);
    }

    void refusesWhatItCannotBe()
    {
        OdDbMText text;
        CPPUNIT_ASSERT_THROW(text.setTextHeight(0), OdError);
        CPPUNIT_ASSERT_THROW(text.setWidth(-1), OdError);
        CPPUNIT_ASSERT_THROW(text.setNormal({}), OdError);
        CPPUNIT_ASSERT_THROW(text.setDirection({0, 0, 2}), OdError);
        CPPUNIT_ASSERT_THROW(text.setLineSpacingFactor(5), OdError);
        CPPUNIT_ASSERT_THROW(text.setRotation(std::numeric_limits<double>::infinity()), OdError);
        assertNear({1, 0, 0}, text.direction());
        CPPUNIT_ASSERT_EQUAL(1.0, text.textHeight());
    }

    void columnsFollowTheText()
    {
        auto const text = roundTrip<OdDbMText>({"100 AcDbMText", "10 1.0", "20 2.0",
                                                "30 0.0",        "40 1.0", "41 8.0",
                                                "71 1",          "1 a",    "101 Embedded Object",
                                                "70 1",          "10 1.0", "20 0.0",
                                                "30 0.0",        "11 1.0", "21 2.0",
                                                "31 0.0",        "40 8.0", "41 3.0",
                                                "71 2",          "44 4.0"});
        OdGeMatrix3d turnedAndDoubled; // by a right angle
        turnedAndDoubled.entry[0][0] = turnedAndDoubled.entry[1][1] = 0;
        turnedAndDoubled.entry[0][1] = -2;
        turnedAndDoubled.entry[1][0] = turnedAndDoubled.entry[2][2] = 2;
        CPPUNIT_ASSERT_EQUAL(eOk, text->transformBy(turnedAndDoubled));
        std::string const written = joined(writtenTags(*text));
        CPPUNIT_ASSERT_MESSAGE(written,
                               written.ends_with("101 Embedded Object\n70 1\n10 0.0\n20 1.0\n30 0.0\n"
                                                 "11 -4.0\n21 2.0\n31 0.0\n40 16.0\n41 6.0\n71 2\n44 8.0\n"));
    }

    void plainText()
    {
        auto const lines = [](wchar_t const* text) {
            std::string joinedLines;
            for (OdString const& line : odDbPlainLines(text))
                joinedLines += '[' + line.toUtf8() + ']';
            return joinedLines;
        };
        CPPUNIT_ASSERT_EQUAL(std::string("[a][b][]"), lines(L"a\\Pb\\P"));
        CPPUNIT_ASSERT_EQUAL(std::string("[{x} \\ y]"), lines(L"\\{x\\}\\~\\\\ y"));
        CPPUNIT_ASSERT_EQUAL(std::string("[1/2 3/4]"), lines(L"\\S1/2; \\H0.7x;\\S3#4;"));
        CPPUNIT_ASSERT_EQUAL(std::string("[a %%uunder][%%uline%%u end]"), lines(L"a \\Lunder\\Pline\\l end"));
        CPPUNIT_ASSERT_EQUAL(std::string("[\\U+2205 %%d ^ x]"), lines(L"\\U+2205 %%d ^ \\C1;\\W1.2; x"));
        CPPUNIT_ASSERT_EQUAL(std::string("[open]"), lines(L"open\\fArial"));
    }

    void framesHoldTheLines()
    {
        double const height = 8.0 / 3;
        OdDbMTextPtr const text = twoLines();
        assertBox({10, 20 - height, 5}, {13.4, 20, 5}, *text);
        text->setAttachment(OdDbMTextAttachment::kMiddleCenter);
        assertBox({8.3, 20 - height / 2, 5}, {11.7, 20 + height / 2, 5}, *text);
        text->setAttachment(OdDbMTextAttachment::kBottomRight);
        text->setRotation(kRightAngle);
        assertBox({10 - height, 16.6, 5}, {10, 20, 5}, *text);

        OdDbMText wrapped; // 4.25 wide: five characters go into a line
        wrapped.setContents(L"ab cd ef longest x");
        wrapped.setWidth(4.3);
        assertBox({0, -(1 + 3 * 5.0 / 3), 0}, {7 * 0.85, 0, 0}, wrapped);
        wrapped.setLineSpacingFactor(2);
        assertBox({0, -(1 + 3 * 10.0 / 3), 0}, {7 * 0.85, 0, 0}, wrapped);
        wrapped.setContents(L"");
        assertBox({0, 0, 0}, {0, 0, 0}, wrapped);
    }

    void transformationsCarryTheFrame()
    {
        OdDbMTextPtr const text = twoLines();
        text->setNormal({0.36, 0.48, 0.8});
        text->setRotation(0.7);
        text->setAttachment(OdDbMTextAttachment::kMiddleRight);
        OdGeMatrix3d const matrices[] = {
            OdGeMatrix3d::translation({3, -4, 5}),
            OdGeMatrix3d::rotation(1.2, OdGeVector3d(0.6, 0, 0.8)),
            OdGeMatrix3d::scaling(2.5),
            OdGeMatrix3d::mirroringAtPlane({1, 1, 0}, OdGeVector3d(0.6, 0.8, 0)),
        };
        for (OdGeMatrix3d const& matrix : matrices) {
            OdDbMTextPtr const moved = text->clone();
            CPPUNIT_ASSERT_EQUAL(eOk, moved->transformBy(matrix));
            CPPUNIT_ASSERT(SampledOutline(*text, matrix).exactDistanceTo(SampledOutline(*moved)) < 1e-9);
        }
    }

    void scalesUnevenly()
    {
        OdDbMTextPtr const text = twoLines();
        text->setWidth(6);
        OdGeMatrix3d stretched;
        stretched.entry[0][0] = 3;
        stretched.entry[1][1] = 2;
        CPPUNIT_ASSERT_EQUAL(eOk, text->transformBy(stretched));
        CPPUNIT_ASSERT_EQUAL(2.0, text->textHeight());
        CPPUNIT_ASSERT_EQUAL(18.0, text->width());
        OdGeMatrix3d flat;
        flat.entry[1][1] = 0;
        CPPUNIT_ASSERT_EQUAL(eDegenerateGeometry, text->transformBy(flat));
        CPPUNIT_ASSERT_EQUAL(2.0, text->textHeight());
    }

    void mirroringTurnsTheNormal()
    {
        OdDbMTextPtr const text = twoLines();
        text->setAttachment(OdDbMTextAttachment::kTopRight);
        CPPUNIT_ASSERT_EQUAL(eOk, text->transformBy(OdGeMatrix3d::mirroringAtPlane({}, OdGeVector3d::kXAxis)));
        assertNear({0, 0, -1}, text->normal());
        assertNear({-1, 0, 0}, text->direction());
        SampledOutline const frame(*text);
        text->turnFace(true);
        assertNear({0, 0, 1}, text->normal());
        assertNear({1, 0, 0}, text->direction());
        CPPUNIT_ASSERT(text->attachment() == OdDbMTextAttachment::kTopLeft);
        CPPUNIT_ASSERT(frame.exactDistanceTo(SampledOutline(*text)) < kNear);
        text->turnFace(false);
        CPPUNIT_ASSERT(text->attachment() == OdDbMTextAttachment::kBottomLeft);
        CPPUNIT_ASSERT(frame.exactDistanceTo(SampledOutline(*text)) < kNear);
    }

    void explodesIntoLines()
    {
        OdDbMTextPtr const text = twoLines();
        text->setContents(L"ab\\P\\Pcdef");
        text->setAttachment(OdDbMTextAttachment::kBottomLeft);
        text->setTextHeight(3);
        std::vector<OdDbEntityPtr> pieces;
        CPPUNIT_ASSERT_EQUAL(eOk, text->explode(pieces));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), pieces.size());
        OdDbTextPtr const first(odCast<OdDbText>(pieces[0].get()));
        OdDbTextPtr const last(odCast<OdDbText>(pieces[1].get()));
        CPPUNIT_ASSERT(first->textString() == L"ab" && last->textString() == L"cdef");
        CPPUNIT_ASSERT_EQUAL(3.0, first->height());
        assertNear({10, 30, 5}, first->position()); // two lines of 5 above the last one
        assertNear({10, 20, 5}, last->position());

        text->setContents(L"\\P");
        CPPUNIT_ASSERT_EQUAL(eNotApplicable, text->explode(pieces));
        CPPUNIT_ASSERT_EQUAL(std::size_t(2), pieces.size());
    }

    void takesTheDefaultsOfTheDrawing()
    {
        OdDbMTextPtr const text(new OdDbMText);
        text->setDatabaseDefaults(*m_db);
        CPPUNIT_ASSERT(text->textStyle() == m_db->getTEXTSTYLE());
        CPPUNIT_ASSERT_EQUAL(m_db->header().real("TEXTSIZE"), text->textHeight());
        CPPUNIT_ASSERT(text->textHeight() != OdDbMText().textHeight());
        OdDbDatabasePtr const other = new OdDbDatabase;
        modelSpace()->appendOdDbEntity(text);
        CPPUNIT_ASSERT_THROW(text->setTextStyle(other->getTEXTSTYLE()), OdError);
    }

    void auditMendsWhatIsWrong()
    {
        OdDbMTextPtr const text(new OdDbMText);
        readTags(*text, {"100 AcDbMText", "40 -2.0", "71 12", "1 a", "210 0.0", "220 0.0", "230 1.0", "11 0.0",
                         "21 0.0", "31 5.0"});
        text->setLayer(m_db->getLayerZeroId());
        modelSpace()->appendOdDbEntity(text);
        CPPUNIT_ASSERT(text->attachment() == OdDbMTextAttachment::kTopLeft);
        assertNear({1, 0, 0}, text->direction()); // something sane until then
        OdDbAuditInfo info(true);
        text->upgradeOpen();
        text->audit(info);
        std::string const written = joined(writtenTags(*text));
        for (char const* const line : {"\n40 2.0\n", "\n71 1\n", "\n11 1.0\n21 0.0\n31 0.0\n"})
            CPPUNIT_ASSERT_MESSAGE(written, written.find(line) != std::string::npos);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(MTextTest);

} // namespace
