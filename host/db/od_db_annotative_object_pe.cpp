// The annotative flag as drawing files hold it: extended data of an application of its own, and in the extension
// dictionary the scales for which there are representations.
#include "host/db/od_db_annotative_object_pe.h"

#include "host/db/entities/od_db_block_reference.h"
#include "host/db/entities/od_db_mtext.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_dictionary.h"
#include "host/db/records/od_db_reg_app_table_record.h"

#include <algorithm>
#include <array>

OD_DEFINE_ABSTRACT_CLASS(OdDbAnnotativeObjectPE, OdRxObject)

namespace {

constexpr wchar_t const* kApplication = L"AcadAnnotative";
constexpr wchar_t const* kContextManager = L"AcDbContextDataManager";
constexpr wchar_t const* kScales = L"ACDB_ANNOTATIONSCALES";
constexpr int kXdataApplication = 1001;
constexpr int kXdataText = 1000;
constexpr int kXdataBrace = 1002;
constexpr int kXdataInteger = 1070;
constexpr std::int64_t kVersion = 1;

OdDbTagList flagTags(bool isAnnotative)
{
    OdDbTagList tags;
    tags.text(kXdataApplication, OdString(kApplication));
    if (!isAnnotative)
        return tags; // the application alone takes its data away
    tags.text(kXdataText, "AnnotativeData");
    tags.text(kXdataBrace, "{");
    tags.integer(kXdataInteger, kVersion);
    tags.integer(kXdataInteger, 1);
    tags.text(kXdataBrace, "}");
    return tags;
}

/// The dictionary that stands under a name, open for writing; null when there is none.
OdDbDictionaryPtr childOf(OdDbDictionary const& parent, wchar_t const* name)
{
    OdDbObjectPtr const child = parent.getAt(name).openObject(OdDb::kForWrite);
    return OdDbDictionaryPtr(odCast<OdDbDictionary>(child.get()));
}

OdDbDictionaryPtr makeChild(OdDbDictionary& parent, wchar_t const* name)
{
    if (OdDbDictionaryPtr const child = childOf(parent, name))
        return child;
    return parent.setAt(name, new OdDbDictionary).safeOpenObject(OdDb::kForWrite);
}

bool isEmpty(OdDbDictionary const& dictionary)
{
    return std::ranges::all_of(dictionary.entries(),
                               [](OdDbDictionary::Entry const& entry) { return entry.id.isErased(); });
}

void removeChild(OdDbDictionary& parent, wchar_t const* name, OdDbDictionary& child)
{
    parent.remove(name);
    child.erase();
}

void addScales(OdDbObject& object)
{
    OdDbDictionaryPtr const extension = object.createExtensionDictionary().safeOpenObject(OdDb::kForWrite);
    OdDbDictionaryPtr const manager = makeChild(*extension, kContextManager);
    makeChild(*manager, kScales);
}

/// Leaves dictionaries that hold anything else.
void removeScales(OdDbObject& object)
{
    OdDbObjectPtr const held = object.extensionDictionary().openObject(OdDb::kForWrite);
    OdDbDictionaryPtr const extension(odCast<OdDbDictionary>(held.get()));
    OdDbDictionaryPtr const manager = extension ? childOf(*extension, kContextManager) : OdDbDictionaryPtr();
    if (!manager)
        return;
    if (OdDbDictionaryPtr const scales = childOf(*manager, kScales))
        removeChild(*manager, kScales, *scales);
    if (isEmpty(*manager))
        removeChild(*extension, kContextManager, *manager);
    if (isEmpty(*extension))
        extension->erase();
}

/// The flag of every class whose objects hold it in the usual way.
class AnnotativeObject final : public OdDbAnnotativeObjectPE
{
public:
    bool annotative(OdDbObject const* object) const override
    {
        int integers = 0; // the version first
        for (OdDbTag const tag : object->extendedData(kApplication))
            if (tag.code == kXdataInteger && tag.kind == OdDbTagKind::kInteger && ++integers == 2)
                return tag.integer != 0;
        return false;
    }

    void setAnnotative(OdDbObject* object, bool isAnnotative) const override
    {
        OdDbDatabase* const database = object->database();
        if (!database)
            throw OdError(eNotInDatabase);
        if (!object->isWriteEnabled())
            throw OdError(eNotOpenForWrite);
        if (annotative(object) == isAnnotative)
            return;
        if (isAnnotative)
            OdDbRegAppTableRecord::registerIn(*database, kApplication);
        object->setExtendedData(flagTags(isAnnotative));
        if (isAnnotative)
            addScales(*object);
        else
            removeScales(*object);
    }
};

/// Serves the classes as long as the library is loaded.
class Registrar
{
public:
    Registrar()
    {
        for (OdRxClass* const each : served())
            each->addX(OdDbAnnotativeObjectPE::desc(), new AnnotativeObject);
    }
    ~Registrar()
    {
        for (OdRxClass* const each : served())
            each->delX(OdDbAnnotativeObjectPE::desc());
    }
    Registrar(Registrar const&) = delete;
    Registrar& operator=(Registrar const&) = delete;

private:
    static std::array<OdRxClass*, 3> served()
    {
        return {OdDbText::desc(), OdDbMText::desc(), OdDbBlockReference::desc()};
    }
};
Registrar const s_registrar;

} // namespace

OdDbAnnotativeObjectPE const* OdDbAnnotativeObjectPE::of(OdDbObject const* object)
{
    return object ? static_cast<OdDbAnnotativeObjectPE const*>(object->isA()->getX(desc())) : nullptr;
}

bool OdDbAnnotativeObjectPE::isAnnotative(OdDbObject const* object)
{
    OdDbAnnotativeObjectPE const* const extension = of(object);
    return extension && extension->annotative(object);
}
