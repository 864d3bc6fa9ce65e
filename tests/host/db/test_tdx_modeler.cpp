#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/tdx_modeler.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

/// Handles everything of one class.
class ClassModeler : public tdx::Modeler
{
public:
    explicit ClassModeler(OdRxClass const* cls) : m_class(cls) {}
    bool canHandle(OdDbEntity const& entity) const override { return entity.isKindOf(m_class); }
    OdResult massProperties(OdDbEntity const&, tdx::MassProperties&) const override { return eNotApplicable; }

private:
    OdRxClass const* m_class;
};

class TestTdxModeler : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestTdxModeler);
    CPPUNIT_TEST(firstThatCanHandleTheEntity);
    CPPUNIT_TEST_SUITE_END();

    void firstThatCanHandleTheEntity()
    {
        OdDbLinePtr const line(new OdDbLine);
        OdDbArcPtr const arc(new OdDbArc);
        CPPUNIT_ASSERT(!tdx::getModeler(line) && !tdx::getModeler(nullptr));
        ClassModeler const lines(OdDbLine::desc()), curves(OdDbCurve::desc()), arcs(OdDbArc::desc());
        {
            tdx::ModelerInstallation const first(lines);
            {
                tdx::ModelerInstallation const second(curves), third(arcs);
                CPPUNIT_ASSERT(tdx::getModeler(line) == &lines && tdx::getModeler(arc) == &curves);
            }
            CPPUNIT_ASSERT(tdx::getModeler(line) == &lines && !tdx::getModeler(arc));
        }
        CPPUNIT_ASSERT(!tdx::getModeler(line));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(TestTdxModeler);

} // namespace
