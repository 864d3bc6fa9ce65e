#pragma once

#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"

#include <cppunit/extensions/HelperMacros.h>

/// A new drawing for each test, and short ways to blocks in it and references to them.
class BlockFixture : public CppUnit::TestFixture
{
public:
    void setUp() override { m_db = new OdDbDatabase; }
    void tearDown() override { m_db = nullptr; }

protected:
    OdDbBlockTableRecordPtr newBlock(wchar_t const* name)
    {
        OdDbBlockTableRecordPtr block(new OdDbBlockTableRecord);
        block->setName(name);
        auto const table = m_db->getBlockTableId().open<OdDbSymbolTable>(OdDb::kForWrite);
        table->add(block);
        return block;
    }
    OdDbBlockTableRecordPtr modelSpace()
    {
        return m_db->getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
    }

    template <class Reference = OdDbBlockReference>
    OdSmartPtr<Reference> insert(OdDbBlockTableRecord& into, OdDbBlockTableRecord& block,
                                 OdGePoint3d const& position)
    {
        OdSmartPtr<Reference> reference(new Reference);
        reference->setDatabaseDefaults(*m_db);
        reference->setBlockTableRecord(block.objectId());
        reference->setPosition(position);
        into.appendOdDbEntity(reference);
        return reference;
    }

    /// A segment from (1, 0) to (3, 1) and a circle about (2, 2), with the base point (1, 0).
    OdDbBlockTableRecordPtr sampleBlock(bool withCircle = true)
    {
        OdDbBlockTableRecordPtr block = newBlock(L"Sample");
        block->appendOdDbEntity(new OdDbLine({1, 0, 0}, {3, 1, 0}));
        if (withCircle) {
            OdDbCirclePtr const circle(new OdDbCircle);
            circle->setCenter({2, 2, 0});
            block->appendOdDbEntity(circle);
        }
        block->setOrigin({1, 0, 0});
        return block;
    }

    OdDbDatabasePtr m_db;
};
