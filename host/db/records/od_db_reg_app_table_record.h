#pragma once

#include "host/db/records/od_db_symbol_table.h"

/// The name of an application that attaches extended data to objects.
class OdDbRegAppTableRecord : public OdDbSymbolTableRecord
{
    OD_DB_DECLARE_CLASS(OdDbRegAppTableRecord)
public:
    /// The record of this name, which is added when the drawing does not have it.
    static OdDbObjectId registerIn(OdDbDatabase& database, OdString const& name);
};
using OdDbRegAppTableRecordPtr = OdSmartPtr<OdDbRegAppTableRecord>;
