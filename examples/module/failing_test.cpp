// Tests that fail, to show what comparisons say.
#include "bracket_fixture.h"
#include "named_suite.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class FailingTest : public BracketFixture
{
public:
    static CppUnit::TestSuite* suite()
    {
        return namedSuite<FailingTest>("Brackets that fail",
                                       {{"Another radius", &FailingTest::otherRadius},
                                        {"Another number of vertices", &FailingTest::vertexTooMany},
                                        {"Another class", &FailingTest::otherClass},
                                        {"Class that is not compared", &FailingTest::unknownClass},
                                        {"Answer that is refused", &FailingTest::refusedAnswer}});
    }

private:
    // The arguments of one call are computed in any order, so last() is asked for before more is made.
    void otherRadius()
    {
        ta::executeCommands(L"CIRCLE 40,20 8.5");
        OdDbObjectId const drawn = last();
        compareEntities(opened(drawn), opened(createHole(8)));
    }

    void vertexTooMany()
    {
        ta::executeCommands(L"PLINE 0,0 60,0 60,20 Arc 40,40 Line 20,40 0,40 Close");
        OdDbObjectId const drawn = last();
        compareEntities(opened(drawn), opened(createOutline(modelSpace())));
    }

    void otherClass()
    {
        drawOutline();
        OdDbObjectId const drawn = last();
        compareEntities(opened(drawn), opened(createHole(8)));
    }

    void unknownClass()
    {
        ta::executeCommands(L"3DFACE 0,0 60,0 60,40 0,40 ");
        compareEntities(opened(last()), opened(last()));
    }

    void refusedAnswer() { ta::executeCommands(L"LINE 0,0 60,0 \nCIRCLE 40,20 -8"); }
};

CPPUNIT_TEST_SUITE_REGISTRATION(FailingTest);

} // namespace
