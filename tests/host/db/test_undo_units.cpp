// Marks and groups among the records of the undo log, and what one redo brings again.
#include "host/db/od_db_database.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class UndoUnitsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(UndoUnitsTest);
    CPPUNIT_TEST(oneRedoBringsAgainWhatOneCallTook);
    CPPUNIT_TEST(changesEndRedoing);
    CPPUNIT_TEST(groupsAreTakenBackAsAWhole);
    CPPUNIT_TEST(openGroupsStopAtTheirBegin);
    CPPUNIT_TEST(goesBackToMarks);
    CPPUNIT_TEST(marksOfGroups);
    CPPUNIT_TEST(databaseUndoNeverSplitsAGroup);
    CPPUNIT_TEST(combinesViewsInARow);
    CPPUNIT_TEST(keepsTheLastUnitAlone);
    CPPUNIT_TEST_SUITE_END();

    OdDbDatabasePtr m_database{new OdDbDatabase};

    OdDbUndoLog& log() { return m_database->undoLog(); }
    /// Each digit is a record that sets the variable to it; "(", ")" and "|" are the ends of groups and marks, and
    /// digits behind "v" change the view alone.
    void record(char const* history)
    {
        for (bool ofView = false; *history; ++history) {
            switch (*history) {
            case '(': log().beginGroup(); break;
            case ')': log().endGroup(); break;
            case '|': log().setMark(); break;
            case 'v': ofView = true; continue;
            default:
                log().start(OdString(1, static_cast<wchar_t>(*history)), ofView);
                setValue(*history - '0');
                log().end();
                log().combineViews();
            }
            ofView = false;
        }
    }
    void setValue(int value) { m_database->setHeaderReal("USERR1", 40, value); }
    int value() const { return static_cast<int>(m_database->header().real("USERR1")); }
    static std::string joined(std::vector<OdString> const& names)
    {
        OdString text;
        for (OdString const& name : names)
            text += name + L" ";
        return text.toUtf8();
    }
    std::string undo(int count) { return joined(log().undoUnits(count)); }
    std::string undoToMark() { return joined(log().undoToMark()); }
    std::string redo() { return joined(log().redo()); }
    void check(char const* expected, std::string const& actual, int expectedValue)
    {
        CPPUNIT_ASSERT_EQUAL(std::string(expected), actual);
        CPPUNIT_ASSERT_EQUAL(expectedValue, value());
    }

public:
    void oneRedoBringsAgainWhatOneCallTook()
    {
        record("12345");
        check("5 ", undo(1), 4);
        check("4 3 2 ", undo(3), 1);
        check("2 3 4 ", redo(), 4);
        check("5 ", redo(), 5);
        check("", redo(), 5);
        check("5 4 3 2 1 ", undo(100), 0);
        check("1 2 3 4 5 ", redo(), 5);
    }

    void changesEndRedoing()
    {
        record("12");
        undo(1);
        log().start(L"nothing");
        log().end();
        CPPUNIT_ASSERT_MESSAGE("a record without changes is in nobody's way", log().hasRedo());
        setValue(7);
        CPPUNIT_ASSERT_MESSAGE("a change that nothing records, too", !log().hasRedo());
        check("", redo(), 7);
    }

    void groupsAreTakenBackAsAWhole()
    {
        record("1(23)4(5)()");
        check("GROUP ", undo(1), 4);
        check("4 GROUP ", undo(2), 1);
        check("2 3 4 ", redo(), 4);
        check("5 ", redo(), 5);
        check("GROUP 4 GROUP 1 ", undo(9), 0);
    }

    void openGroupsStopAtTheirBegin()
    {
        record("1(23");
        check("3 2 ", undo(5), 1);
        check("", undo(1), 1);
        check("2 3 ", redo(), 3);
        CPPUNIT_ASSERT(log().isGroupOpen());
        record("(4"); // ends the open group
        record(")");
        check("GROUP ", undo(1), 3);
        check("GROUP ", undo(1), 1);
    }

    void goesBackToMarks()
    {
        record("1|23|4||");
        CPPUNIT_ASSERT_EQUAL(4, log().marks());
        check("", undoToMark(), 4);
        check("", undoToMark(), 4);
        check("4 ", undoToMark(), 3);
        check("3 2 ", undoToMark(), 1);
        CPPUNIT_ASSERT(!log().hasMark());
        check("1 ", undoToMark(), 0);
        check("", undoToMark(), 0);
        redo();
        check("2 3 ", redo(), 3);
        check("4 ", redo(), 4);
        CPPUNIT_ASSERT_EQUAL_MESSAGE("marks came again", 2, log().marks());
        check("4 3 ", undo(2), 2);
        CPPUNIT_ASSERT_EQUAL_MESSAGE("the mark on the way is gone", 1, log().marks());
    }

    void marksOfGroups()
    {
        record("1|2(3|4");
        check("4 ", undoToMark(), 3);
        CPPUNIT_ASSERT(log().isGroupOpen());
        check("GROUP 2 ", undoToMark(), 1); // the group ends, to go back beyond it
        record("(5|6)");
        CPPUNIT_ASSERT(!log().hasMark());
        check("GROUP 1 ", undoToMark(), 0);
        check("1 5 6 ", redo(), 6);
    }

    void databaseUndoNeverSplitsAGroup()
    {
        record("1(23)|(");
        m_database->undo();
        CPPUNIT_ASSERT_EQUAL(1, value());
        m_database->redo();
        CPPUNIT_ASSERT_EQUAL(3, value());
        CPPUNIT_ASSERT(log().isGroupOpen());
        m_database->undo();
        m_database->undo();
        CPPUNIT_ASSERT(value() == 0 && !log().hasUndo());
    }

    void combinesViewsInARow()
    {
        record("1v2v34v5");
        check("5 ", undo(1), 4);
        check("4 2 ", undo(2), 1);
        check("2 4 ", redo(), 4);
    }

    void keepsTheLastUnitAlone()
    {
        record("1|(23)|");
        log().keepLastUnit();
        CPPUNIT_ASSERT_EQUAL(0, log().marks());
        check("GROUP ", undo(5), 1);
        log().clear();
        check("", redo(), 1);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(UndoUnitsTest);

} // namespace
