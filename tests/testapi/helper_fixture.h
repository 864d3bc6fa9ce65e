#pragma once

#include "testapi/ta_test_helper.h"
#include "tests/host/app/document_fixture.h"
#include "tests/testapi/cmd_test_run.h"

/// A ta::TestHelperEx that is bound to a new drawing with the skewed coordinate system of fixtures.
class HelperFixture : public DocumentFixture
{
public:
    void setUp() override
    {
        DocumentFixture::setUp();
        m_helper.setUpDefault(true);
        m_model = m_helper.db().getModelSpaceId();
        m_paper = m_helper.db().getPaperSpaceId();
        m_blocks = m_helper.db().getBlockTableId();
        m_block = m_helper.createBTR(m_blocks, L"Sample", {1, 2, 3});
    }
    void tearDown() override
    {
        m_helper.tearDownDefault();
        DocumentFixture::tearDown();
    }

protected:
    /// Z axis of the coordinate system: (0, 0, 1) turned by 20 degrees about Y, then 10 about X.
    static inline OdGeVector3d const s_ucsNormal{0.342020143325669, -0.163175911166535, 0.925416578398323};

    static std::size_t entitiesIn(OdDbObjectId owner)
    {
        return owner.open<OdDbBlockTableRecord>()->entities().size();
    }

    ta::TestHelperEx m_helper;
    OdDbObjectId m_model;
    OdDbObjectId m_paper;
    OdDbObjectId m_blocks;
    OdDbObjectId m_block;
};
