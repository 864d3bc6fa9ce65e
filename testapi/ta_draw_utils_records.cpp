// New records with names of their own.
#include "testapi/ta_draw_utils.h"
#include "testapi/ta_utils.h"

namespace ta {

namespace {

template <class Record>
OdDbObjectId addRecord(OdDbDatabase& database, OdDbTableKind kind, wchar_t const* prefix,
                       OdSmartPtr<Record> const& record = OdSmartPtr<Record>(new Record))
{
    auto const table = database.getTableId(kind).open<OdDbSymbolTable>(OdDb::kForWrite);
    record->setName(createUniqueName(table.get(), prefix));
    return table->add(record.get());
}

} // namespace

OdDbObjectId createLayer(OdDbDatabase& database, wchar_t const* prefix, LayerProperties const& properties)
{
    OdDbLayerTableRecordPtr const layer(new OdDbLayerTableRecord);
    if (properties.color)
        layer->setColor(*properties.color);
    if (properties.lineWeight)
        layer->setLineWeight(*properties.lineWeight);
    if (!properties.linetype.isNull()) {
        if (properties.linetype.database() != &database)
            throw OdError(eWrongDatabase);
        layer->setLinetypeObjectId(properties.linetype);
    }
    return addRecord(database, OdDbTableKind::kLayer, prefix, layer);
}

OdDbObjectId createTextStyle(OdDbDatabase& database, wchar_t const* prefix)
{
    return addRecord<OdDbTextStyleTableRecord>(database, OdDbTableKind::kTextStyle, prefix);
}

OdDbObjectId createMaterial(OdDbDatabase& database, wchar_t const* prefix)
{
    auto const dictionary = odDbMaterialDictionary(database, true).open<OdDbDictionary>();
    OdDbMaterialPtr const material(new OdDbMaterial);
    material->setName(createUniqueName(dictionary.get(), prefix));
    return odDbAddMaterial(database, material.get());
}

OdDbObjectId createDimStyle(OdDbDatabase& database, wchar_t const* prefix)
{
    return addRecord<OdDbDimStyleTableRecord>(database, OdDbTableKind::kDimStyle, prefix);
}

} // namespace ta
