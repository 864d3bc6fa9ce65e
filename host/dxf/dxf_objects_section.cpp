#include "host/dxf/dxf_sections.h"

#include "host/db/filer/od_db_class_registry.h"
#include "host/db/od_db_raw_object.h"
#include "host/db/records/od_db_dictionary.h"

namespace dxf {

namespace {

OdDbObjectPtr createObject(std::string_view name)
{
    if (OdRxClass const* const known = odDbClassRegistry::find(name)) {
        OdDbObjectPtr object = OdRxObjectPtr(known->create());
        if (object->standsAmongFileObjects())
            return object;
    }
    return new OdDbRawObject(name);
}

} // namespace

void readObjects(Reading& reading)
{
    OdDbDatabase& database = reading.database();
    reading.skipToRecord();
    while (!reading.isAtSectionEnd()) {
        OdDbObjectPtr const object = createObject(reading.tag().text);
        RecordHead const head = reading.readRecord(*object);
        OdDbObjectId const id = reading.add(*object, reading.names().byHandle(head.owner), head);
        // The dictionary of named objects is the one that comes first.
        if (database.getNamedObjectsDictionaryId().isNull() && odCast<OdDbDictionary>(object.get()))
            database.setNamedObjectsDictionaryId(id);
    }
}

} // namespace dxf
