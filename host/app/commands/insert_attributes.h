#pragma once

#include "host/app/editor.h"
#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/entities/od_db_block_reference.h"

namespace ca {

/// What a new reference is to hold for one attribute definition.
struct AttributeValue
{
    OdDbObjectId definition;
    OdString text;
};

/// Asks for the values of the attributes of a block, in the order of their definitions. Preset ones get their
/// default, all of them do while ATTREQ is 0; definitions that want it are asked again for confirmation. Constant
/// ones have no value.
Task<std::vector<AttributeValue>> askAttributes(Editor& editor, OdDbObjectId block);

/// Appends the attributes to a reference that has its final place.
void appendAttributes(OdDbBlockReference& reference, std::vector<AttributeValue> const& values);

} // namespace ca
