#pragma once

#include "host/db/od_db_object.h"

#include <unordered_map>

/// Names and the objects that they stand for. Names compare without regard to case.
class OdDbDictionary : public OdDbObject
{
    OD_DB_DECLARE_CLASS(OdDbDictionary)
public:
    struct Entry
    {
        OdString name;
        OdDbObjectId id;
        bool isHardOwner = false; ///< how files refer to the object: group 360 instead of 350
    };

    bool has(OdString const& name) const { return !getAt(name).isNull(); }
    /// Null when there is no such name or its object is erased.
    OdDbObjectId getAt(OdString const& name) const;
    /// Gives a new object to the drawing under this name; it is owned by the dictionary. An older object of the
    /// name is erased if the dictionary owned it. Returns the new object's id. Throws OdError: eInvalidName for an
    /// empty name, eAlreadyInDb, eNotInDatabase for a dictionary without drawing, eNotOpenForWrite.
    OdDbObjectId setAt(OdString const& name, OdDbObject* object);
    /// Points the name to an object of the drawing. Throws OdError: as above, eNullObjectId, eWrongDatabase.
    void setAt(OdString const& name, OdDbObjectId id);
    /// Removes the entry, not the object; a missing name is not an error.
    void remove(OdString const& name);
    /// In order of adding, entries of erased objects included.
    std::vector<Entry> const& entries() const { return m_entries; }

    bool isTreatElementsAsHard() const { return m_isHardOwner; }
    void setTreatElementsAsHard(bool hard);
    bool standsAmongFileObjects() const override { return true; }
    void audit(OdDbAuditInfo& info) const override;

protected:
    static OdDbSection dictionarySection();
    void visitOwned(std::function<void(OdDbStub&)> const& visit) const override;

private:
    friend class OdDbDictionaryStep;
    friend class OdDbDictionaryEntriesStep;
    /// Numbers of entries by upper-case name.
    struct Index : std::unordered_map<OdString, std::size_t>
    {
        bool isStale = true;
    };
    static constexpr std::size_t kNotFound = static_cast<std::size_t>(-1);

    static bool readName(OdDbObject& object, OdDbTag const& tag);
    static bool readId(OdDbObject& object, OdDbTag const& tag, OdDbReferenceResolver& resolver);
    static void writeEntries(OdDbObject const& object, OdDbTagSink& sink);
    void checkChange(OdString const& name) const;
    void put(OdString const& name, OdDbObjectId id);
    std::size_t find(OdString const& name) const;
    void rebuildIndex() const;
    void removeEntriesOfNothing();

    OdDbNotCopied<std::vector<Entry>> m_entries;
    mutable OdDbNotCopied<Index> m_index;
    bool m_isHardOwner = false;
    std::int16_t m_cloning = 1;
};
using OdDbDictionaryPtr = OdSmartPtr<OdDbDictionary>;
