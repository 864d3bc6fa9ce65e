#pragma once

#include "host/db/filer/od_db_field.h"
#include "host/root/od_rx_class.h"

/// A symbol table as drawing files have it. Records stand under the name of their table there.
struct OdDbTableKindInfo
{
    OdDbTableKind kind;
    std::string_view fileName;
    OdRxClass::DescFunction tableClass;
    OdRxClass::DescFunction recordClass;
};

/// All tables in the order of drawing files.
std::span<OdDbTableKindInfo const> odDbTableKinds();
OdDbTableKindInfo const& odDbTableKind(OdDbTableKind kind);
/// A record that every drawing has.
struct OdDbRequiredRecord
{
    OdDbTableKind table;
    wchar_t const* name;
};
std::span<OdDbRequiredRecord const> odDbRequiredRecords();
/// Null for a name that no table has.
OdDbTableKindInfo const* odDbFindTableKind(std::string_view fileName);
