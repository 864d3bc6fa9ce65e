#pragma once

#include "host/db/filer/od_db_field_table.h"
#include "host/db/od_db_copied_ptr.h"
#include "host/root/od_rx_object.h"

class OdDbAuditInfo;

/// What only some objects have: everything around the fields of the class that a drawing file can hold.
struct OdDbObjectExtras
{
    /// Tags that no field takes, kept with the group of the field table after which they stood; `marker` is empty
    /// for tags within that group, else the subclass marker of a section that the host does not know.
    struct Section
    {
        int group;
        std::string marker;
        OdDbTagList tags;
    };
    OdDbObjectId extensionDictionary;
    std::vector<OdDbObjectId> reactors;
    OdDbTagList applicationGroups; ///< other groups in braces, before the first marker
    std::vector<Section> sections;
    OdDbTagList extendedData; ///< from the first 1001 to the end
};

/// Base of everything that a drawing holds. An object without drawing can be changed freely; one in a drawing has
/// to be opened, and its first change within an undo record keeps a before-image of its fields.
class OdDbObject : public OdRxObject
{
    OD_DECLARE_CLASS(OdDbObject)
public:
    OdDbObject() = default;
    OdDbObject(OdDbObject const& other);
    OdDbObject& operator=(OdDbObject const& other);

    OdDbObjectId objectId() const { return OdDbObjectId(m_stub); }
    OdDbObjectId ownerId() const { return m_owner; }
    OdDbHandle getDbHandle() const { return m_stub ? m_stub->handle : OdDbHandle(); }
    OdDbDatabase* database() const { return m_stub ? m_stub->database : nullptr; }
    bool isDBRO() const { return m_stub != nullptr; }

    bool isErased() const { return m_stub && m_stub->erased; }
    /// Erases or brings back, with all that belongs to the object (attributes, extension dictionary); the object
    /// stays addressable. Throws OdError(eNotInDatabase) without a drawing, eNotOpenForWrite when not open for
    /// writing.
    void erase(bool erasing = true);

    bool isWriteEnabled() const { return !m_stub || m_openForWrite; }
    void upgradeOpen() { m_openForWrite = true; }
    void downgradeOpen() { m_openForWrite = false; }

    /// A copy without drawing, handle, reactors and extension dictionary; extended data and parts (vertices,
    /// attributes) are copied.
    OdSmartPtr<OdDbObject> clone() const;

    /// Takes all fields of an object of exactly the same class: geometry and properties. What else belongs to this
    /// one stays: identity, parts, reactors, extended data, extension dictionary. Throws OdError:
    /// OdError_NotThatKindOfClass, eNotOpenForWrite.
    void takeFieldsOf(OdDbObject const& other);

    /// Null when there is none.
    OdDbObjectId extensionDictionary() const;
    /// Creates the extension dictionary when there is none. The object is open for writing and in a drawing.
    OdDbObjectId createExtensionDictionary();

    /// Extended data of one registered application, its 1001 tag included; empty when there is none.
    OdDbTagList extendedData(OdString const& application) const;
    /// Replaces the extended data of the application that the list begins with (1001); a list of that tag alone
    /// removes it. Throws OdError(eInvalidInput) for a list without 1001 in front.
    void setExtendedData(OdDbTagList const& tags);

    OdDbObjectExtras const* extras() const { return m_extras.get(); }

    /// The group "0" name under which drawing files hold the class; empty when they do not.
    virtual std::string_view dxfName() const;
    virtual OdDbFieldTable const& fieldTable() const;
    static OdDbFieldTable const& fields();
    /// The group code under which drawing files hold the handle of the object.
    virtual int handleGroupCode() const { return 5; }

    /// Tells everything about the object that cannot be right, on its own and with regard to what it refers to.
    /// For a whole drawing: audit/od_db_audit.h. This one knows what the list of fields tells; classes add what
    /// only they know. The object is in a drawing.
    virtual void audit(OdDbAuditInfo& info) const;

    /// @name For filers and the undo log
    /// @{
    virtual OdDbObject* copyFields() const;
    virtual void assignFields(OdDbObject const& image);
    /// Called when a before-image was put back, on the object that now holds it.
    virtual void fieldsRestored() {}
    /// Called once when the object becomes part of a drawing, before anything else can see it.
    virtual void addedToDatabase() {}
    /// Called on a copy: takes copies of what belongs to the source and is not among its fields.
    virtual void copyPartsOf(OdDbObject const&) {}
    /// Drawing files list the object by itself, outside tables and blocks.
    virtual bool standsAmongFileObjects() const { return false; }
    /// Called after erasing and bringing back, also by undo.
    virtual void erasedStateChanged() {}
    OdDbObjectExtras& editExtras() { return m_extras.makeIfNull(); }
    void markPresent(int field);
    bool isPresent(int field) const { return field < 64 && (m_presentFields >> field & 1) != 0; }
    void setOwner(OdDbObjectId owner) { m_owner = owner; }
    /// @}

protected:
    /// Calls the visitor with each object that belongs to this one alone and goes with it.
    virtual void visitOwned(std::function<void(OdDbStub&)> const& visit) const;
    /// Every setter calls this before it changes anything. Throws OdError(eNotOpenForWrite).
    void assertWriteEnabled();
    void onLastRelease() override;

private:
    friend class OdDbDatabase;
    friend class OdDbObjectId;
    friend class OdDbUndoLog;

    void setErased(bool erasing, std::vector<OdDbStub*>& owned);
    void auditReals(OdDbField const& field, OdDbAuditInfo& info) const;
    void auditReference(OdDbField const& field, OdDbAuditInfo& info) const;

    OdDbStub* m_stub = nullptr;
    OdDbObjectId m_owner;
    OdDbCopiedPtr<OdDbObjectExtras> m_extras;
    std::uint64_t m_presentFields = 0;
    std::uint32_t m_imageSerial = 0; ///< undo record that holds a before-image of this object
    bool m_openForWrite = false;
};

/// In the class body of a database class, after OD_DECLARE_CLASS' job: fields and before-images.
#define OD_DB_DECLARE_CLASS(Class)                                                                                \
    OD_DECLARE_CLASS(Class)                                                                                       \
    static OdDbFieldTable const& fields();                                                                        \
    OdDbFieldTable const& fieldTable() const override                                                             \
    {                                                                                                             \
        return Class::fields();                                                                                   \
    }                                                                                                             \
    OdDbObject* copyFields() const override                                                                       \
    {                                                                                                             \
        return new Class(*this);                                                                                  \
    }                                                                                                             \
    void assignFields(OdDbObject const& image) override                                                           \
    {                                                                                                             \
        *this = static_cast<Class const&>(image);                                                                 \
    }

/// Whether a record is of one class among several that share their name in files: by its tags and by the entity
/// of which it is a part (null for none).
using OdDbVariantTest = bool (*)(OdDbTagList const& tags, OdDbObject const* whole);

/// Puts a class under its name in drawing files; see od_db_class_registry.h.
struct OdDbClassRegistrar
{
    OdDbClassRegistrar(std::string_view dxfName, OdRxClass::DescFunction desc, OdDbVariantTest test = nullptr);
};

/// In the source file: the class record and the name in drawing files.
#define OD_DB_DEFINE_CLASS(Class, Parent, dxfName)                                                                \
    OD_DEFINE_CLASS(Class, Parent)                                                                                \
    static OdDbClassRegistrar const s_registerFile##Class(dxfName, &Class::desc);

/// For a class that shares its name in files with others.
#define OD_DB_DEFINE_VARIANT_CLASS(Class, Parent, dxfName, test)                                                  \
    OD_DEFINE_CLASS(Class, Parent)                                                                                \
    static OdDbClassRegistrar const s_registerFile##Class(dxfName, &Class::desc, test);
