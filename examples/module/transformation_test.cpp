// Tests that run once for each parameters file in params/: the file names the drawing, and says what is to be
// tried.
#include "testapi/ta_draw_utils.h"
#include "testapi/ta_test_case_arg.h"
#include "testapi/ta_test_helper.h"
#include "vorntest/test_arg_suite.h"

#include <cppunit/TestFixture.h>
#include <cppunit/extensions/HelperMacros.h>

namespace {

class TransformationTest : public CppUnit::TestFixture, protected ta::TestHelperEx
{
public:
    explicit TransformationTest(ta::TestCaseArgParams& params) : m_params(params) {}

    void setUp() override
    {
        m_params.setup();
        setUpDefault(!ca::curDoc()); // a file without dwg works in the current drawing; the bench begins with none
        if (entities().empty())
            ta::executeCommands(L"LINE 0,0 60,0 60,40 \nCIRCLE 40,20 8");
    }
    void tearDown() override
    {
        tearDownDefault();
        m_params.cleanup();
    }

    void mirrored()
    {
        std::size_t const count = entities().size();
        bool const keepsSources = m_params.isOn(L"keep sources");
        ta::executeCommands(keepsSources ? L"MIRROR All  0,0 0,1 No" : L"MIRROR All  0,0 0,1 Yes");
        CPPUNIT_ASSERT_EQUAL(keepsSources ? 2 * count : count, entities().size());
    }

    void turnedAround()
    {
        if (m_params.isOff(L"turn"))
            return;
        std::vector<OdDbEntityPtr> before;
        for (OdDbObjectId const id : entities()) {
            before.emplace_back();
            getTransformedCopy(id.open<OdDbEntity>(), OdGeMatrix3d::kIdentity, before.back());
        }
        ta::executeCommands(L"ROTATE All  10,10 270\nROTATE All  10,10 90");
        std::vector<OdDbObjectId> const after = entities();
        CPPUNIT_ASSERT_EQUAL(before.size(), after.size());
        for (std::size_t i = 0; i < after.size(); ++i)
            compareEntities(after[i].open<OdDbEntity>(), before[i]);
    }

private:
    /// All entities of model space that are not erased.
    std::vector<OdDbObjectId> entities() const
    {
        std::vector<OdDbObjectId> ids;
        auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
        for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step())
            ids.push_back(it.objectId());
        return ids;
    }

    ta::TestCaseArgParams& m_params;
};

vorntest::TestArgSuiteRegistration<ta::TestCaseArgParams, TransformationTest> s_registration{
    L"Transformations",
    {{"MIRROR keeps its sources when told to", &TransformationTest::mirrored},
     {"A whole turn in two steps changes nothing", &TransformationTest::turnedAround}}};

} // namespace
