#pragma once

#include "host/db/od_db_object.h"

#include <span>
#include <unordered_map>

/// A named record of a symbol table. Names compare without regard to case and keep their spelling.
class OdDbSymbolTableRecord : public OdDbObject
{
    OD_DECLARE_CLASS(OdDbSymbolTableRecord)
public:
    OdString const& getName() const { return m_name; }
    /// Renames. Throws OdError: eInvalidName for an empty name or characters that names cannot hold, eDuplicateKey
    /// when another record of the table has the name.
    void setName(OdString const& name);
    /// The record has no name and is not found by one (shape files).
    virtual bool isNameless() const { return false; }

    /// The record stands for a name that a file uses without defining it; it is written once something changes it.
    bool isImplied() const { return m_isImplied; }
    void setImplied(bool implied) { m_isImplied = implied; }

    void fieldsRestored() override;
    void erasedStateChanged() override;

    /// The section that all records begin with.
    static OdDbSection recordSection() { return {"AcDbSymbolTableRecord", {}}; }

protected:
    /// As the base class does; and the record is no longer implied.
    void assertWriteEnabled();
    bool hasFlag(int bit) const { return (m_flags & bit) != 0; }
    void setFlag(int bit, bool on);

    OdString m_name;
    std::int16_t m_flags = 0;

private:
    friend class OdDbSymbolTable;
    friend class OdDbNameAudit;
    bool m_isImplied = false;
};
using OdDbSymbolTableRecordPtr = OdSmartPtr<OdDbSymbolTableRecord>;

/// The records of one kind, in order of adding. Erased records count as absent.
class OdDbSymbolTable : public OdDbObject
{
    OD_DB_DECLARE_CLASS(OdDbSymbolTable)
public:
    bool has(OdString const& name) const { return !getAt(name).isNull(); }
    /// Null when there is no such record. Of several records of one name, which files hold for the viewports of a
    /// tiled screen, the first.
    OdDbObjectId getAt(OdString const& name) const;
    /// Adds a record and gives it to the drawing. Throws as OdDbSymbolTableRecord::setName.
    OdDbObjectId add(OdDbSymbolTableRecord* record);
    /// All records in order of adding, erased ones included.
    std::vector<OdDbStub*> const& records() const { return m_records; }

    /// For filers: adds a record that has its handle already, whatever its name.
    void adopt(OdDbSymbolTableRecord& record);
    /// For filers: puts the given records in front, in their order; the others follow in theirs.
    void putInFront(std::span<OdDbStub* const> records);
    /// The next lookup sees changed names.
    void namesChanged() const { m_index.isStale = true; }

    static bool isValidName(OdString const& name);
    /// The names of the records, which no record can judge by itself.
    void audit(OdDbAuditInfo& info) const override;

protected:
    static OdDbSection tableSection() { return {"AcDbSymbolTable", {}}; }

private:
    /// Records by upper-case name.
    struct Index : std::unordered_map<OdString, OdDbStub*>
    {
        bool isStale = true;
    };
    void checkNewName(OdString const& name) const;
    void indexRecord(OdDbStub* stub) const;
    void rebuildIndex() const;

    OdDbNotCopied<std::vector<OdDbStub*>> m_records;
    mutable OdDbNotCopied<Index> m_index;
};
using OdDbSymbolTablePtr = OdSmartPtr<OdDbSymbolTable>;
