#include "host/db/od_db_object.h"

#include "host/db/filer/od_db_class_registry.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_dictionary.h"

OD_DEFINE_ABSTRACT_CLASS(OdDbObject, OdRxObject)

OdDbObjectPtr OdDbObjectId::safeOpenObject(OdDb::OpenMode mode, bool openErased) const
{
    if (!m_stub)
        throw OdError(eNullObjectId);
    if (!m_stub->object)
        throw OdError(eUnknownHandle, odFormat(L"No object has the handle %ls", m_stub->handle.ascii().c_str()));
    if (m_stub->erased && !openErased)
        throw OdError(eWasErased);
    if (mode == OdDb::kForWrite)
        m_stub->object->upgradeOpen();
    return m_stub->object;
}

OdDbObjectPtr OdDbObjectId::openObject(OdDb::OpenMode mode, bool openErased) const
{
    if (!isValid() || (m_stub->erased && !openErased))
        return nullptr;
    return safeOpenObject(mode, openErased);
}

OdDbObject::OdDbObject(OdDbObject const& other)
    : OdRxObject(other), m_extras(other.m_extras), m_presentFields(other.m_presentFields)
{
}

OdDbObject& OdDbObject::operator=(OdDbObject const& other)
{
    if (this != &other) {
        m_extras = other.m_extras;
        m_presentFields = other.m_presentFields;
    }
    return *this;
}

OdDbFieldTable const& OdDbObject::fields()
{
    static OdDbFieldTable const s_table({});
    return s_table;
}

OdDbFieldTable const& OdDbObject::fieldTable() const
{
    return OdDbObject::fields();
}

std::string_view OdDbObject::dxfName() const
{
    return odDbClassRegistry::dxfNameOf(isA());
}

OdDbObject* OdDbObject::copyFields() const
{
    throw OdError(eNotApplicable);
}

void OdDbObject::assignFields(OdDbObject const&)
{
    throw OdError(eNotApplicable);
}

void OdDbObject::takeFieldsOf(OdDbObject const& other)
{
    if (other.isA() != isA())
        throw OdError_NotThatKindOfClass(other.isA(), isA());
    assertWriteEnabled();
    OdDbCopiedPtr<OdDbObjectExtras> const extras = m_extras;
    assignFields(other);
    m_extras = extras;
}

void OdDbObject::assertWriteEnabled()
{
    if (!m_stub)
        return;
    if (!m_openForWrite)
        throw OdError(eNotOpenForWrite);
    OdDbDatabase& db = *m_stub->database;
    db.undoLog().keepImageOf(*this);
    db.noteChange();
}

void OdDbObject::onLastRelease()
{
    if (m_stub)
        m_openForWrite = false; // the last pointer but the drawing's own is gone: the object is closed
    else
        delete this;
}

namespace {

class EraseStep : public OdDbUndoStep
{
public:
    explicit EraseStep(OdDbStub* stub) : m_stub(stub) {}
    void revert(OdDbDatabase& database) override
    {
        m_stub->erased = !m_stub->erased;
        m_stub->object->erasedStateChanged();
        database.noteChange();
    }

private:
    OdDbStub* m_stub;
};

} // namespace

void OdDbObject::erase(bool erasing)
{
    if (!m_stub)
        throw OdError(eNotInDatabase);
    if (!m_openForWrite)
        throw OdError(eNotOpenForWrite);
    // A list instead of recursion: files can hold chains of owners of any length.
    std::vector<OdDbStub*> pending;
    if (m_stub->erased != erasing)
        setErased(erasing, pending);
    while (!pending.empty()) {
        OdDbObjectPtr const owned = OdDbObjectId(pending.back()).safeOpenObject(OdDb::kForWrite, true);
        pending.pop_back();
        if (owned->m_stub->erased != erasing)
            owned->setErased(erasing, pending);
    }
}

/// Erases or brings back this object alone, and puts what belongs to it on the list, the first one on top.
void OdDbObject::setErased(bool erasing, std::vector<OdDbStub*>& owned)
{
    OdDbDatabase& db = *m_stub->database;
    db.undoLog().add(std::make_unique<EraseStep>(m_stub));
    m_stub->erased = erasing;
    erasedStateChanged();
    db.noteChange();
    auto const before = static_cast<std::ptrdiff_t>(owned.size());
    visitOwned([&owned](OdDbStub& each) { owned.push_back(&each); });
    std::reverse(owned.begin() + before, owned.end());
}

void OdDbObject::visitOwned(std::function<void(OdDbStub&)> const& visit) const
{
    OdDbObjectId const dictionary = m_extras ? m_extras.get()->extensionDictionary : OdDbObjectId();
    if (dictionary.isValid())
        visit(*dictionary.stub());
}

OdDbObjectPtr OdDbObject::clone() const
{
    OdDbObjectPtr copy(copyFields());
    if (copy->m_extras) {
        copy->m_extras.get()->reactors.clear();
        copy->m_extras.get()->extensionDictionary = OdDbObjectId();
    }
    copy->copyPartsOf(*this);
    return copy;
}

void OdDbObject::markPresent(int field)
{
    if (field < 64)
        m_presentFields |= std::uint64_t(1) << field;
}

OdDbObjectId OdDbObject::extensionDictionary() const
{
    OdDbObjectId const id = m_extras ? m_extras.get()->extensionDictionary : OdDbObjectId();
    return id.isErased() ? OdDbObjectId() : id;
}

OdDbObjectId OdDbObject::createExtensionDictionary()
{
    if (OdDbObjectId const id = extensionDictionary(); !id.isNull())
        return id;
    if (!m_stub)
        throw OdError(eNotInDatabase);
    assertWriteEnabled();
    OdDbObjectId const id = database()->addOdDbObject(new OdDbDictionary, objectId());
    m_extras.makeIfNull().extensionDictionary = id;
    return id;
}

namespace {

/// Splits extended data at the 1001 tags: the part of one application, or all others.
OdDbTagList partOf(OdDbTagList const& all, std::string_view application, bool wanted)
{
    OdDbTagList part;
    bool isWanted = false;
    for (OdDbTag const tag : all) {
        if (tag.code == 1001)
            isWanted = (tag.text == application) == wanted;
        if (isWanted)
            part.put(tag);
    }
    return part;
}

} // namespace

OdDbTagList OdDbObject::extendedData(OdString const& application) const
{
    return m_extras ? partOf(m_extras.get()->extendedData, application.toUtf8(), true) : OdDbTagList();
}

void OdDbObject::setExtendedData(OdDbTagList const& tags)
{
    if (tags.empty() || (*tags.begin()).code != 1001)
        throw OdError(eInvalidInput, L"Extended data begins with the name of its application");
    assertWriteEnabled();
    OdDbObjectExtras& extras = m_extras.makeIfNull();
    OdDbTagList rest = partOf(extras.extendedData, (*tags.begin()).text, false);
    if (++tags.begin() != tags.end())
        tags.writeTo(rest);
    extras.extendedData = std::move(rest);
}
