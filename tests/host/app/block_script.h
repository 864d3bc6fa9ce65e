#pragma once

#include "host/app/ca_app.h"
#include "host/app/command_line.h"
#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/entities/od_db_block_reference.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_block_table_record.h"
#include "tests/host/app/draw_script.h"

/// What the tests of -BLOCK and -INSERT share.
class BlockScriptTest : public DrawScriptTest
{
protected:
    /// Feeds a script that must not be refused.
    static void run(OdString const& script);

    static OdDbSymbolTable& blocks() { return db().table(OdDbTableKind::kBlock); }
    static OdDbBlockTableRecordPtr space()
    {
        return db().getModelSpaceId().open<OdDbBlockTableRecord>(OdDb::kForWrite);
    }
    /// One text for each entity, separated by "; ". A reference: block, position, factors, rotation in degrees,
    /// and for each attribute "TAG=text@position" with height and rotation where they are not 1 and 0.
    static std::string modelSpace();
    static std::string block(OdString const& name);
    static OdDbBlockReferencePtr firstReference() { return space()->newIterator().entity(); }

    static OdDbAttributeDefinitionPtr addDefinition(OdDbBlockTableRecord& block, OdString const& tag,
                                                    OdString const& text, OdGePoint3d const& position);
    /// "Title", a block with attributes of all kinds: asked twice, asked once without prompt, preset, constant.
    static void makeTitleBlock();
};
