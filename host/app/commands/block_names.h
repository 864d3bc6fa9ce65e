#pragma once

#include "host/app/editor.h"
#include "host/db/records/od_db_block_table_record.h"

namespace ca {

/// A block that users define and insert: neither a space, nor anonymous, nor what an external reference holds.
bool isUserBlock(OdDbBlockTableRecord const& block);

/// Asks which blocks to list and lists them; what is behind "?" where a block is asked for.
Task<> listBlocks(Editor& editor);

} // namespace ca
