#pragma once

#include "host/db/od_db_entity.h"
#include "host/db/od_db_object_iterator.h"
#include "host/db/records/od_db_symbol_table.h"

/// The head of a block in drawing files; holds what belongs to the block as a whole.
class OdDbBlockBegin : public OdDbEntity
{
    OD_DB_DECLARE_CLASS(OdDbBlockBegin)
public:
    /// The name that the file gives; the block's own name is the record's.
    OdString const& fileName() const { return m_fileName; }

private:
    friend class OdDbBlockTableRecord;
    static bool readNames(OdDbObject& object, OdDbTag const& tag);
    static void writeNames(OdDbObject const& object, OdDbTagSink& sink);

    OdString m_fileName;
    OdGePoint3d m_origin;
    std::int16_t m_flags = 0;
    OdString m_externalPath;
    OdString m_description;
};

class OdDbBlockEnd : public OdDbEntity
{
    OD_DB_DECLARE_CLASS(OdDbBlockEnd)
};

/// A block: a named list of entities. Model space and the sheets of layouts are blocks too.
class OdDbBlockTableRecord : public OdDbSymbolTableRecord
{
    OD_DB_DECLARE_CLASS(OdDbBlockTableRecord)
public:
    /// Base point, in the block's own coordinates.
    OdGePoint3d origin() const;
    void setOrigin(OdGePoint3d const& point);
    OdString description() const;
    void setDescription(OdString const& text);

    /// The block is the model space or a sheet.
    bool isLayout() const;
    bool isPaperSpace() const;
    bool isAnonymous() const { return getName().startsWith(L"*") && !isLayout(); }
    bool isFromExternalReference() const;
    /// References to the block may be exploded.
    bool isExplodable() const { return m_explodable != 0; }
    void setExplodable(bool explodable);
    /// Some entity of the block is an attribute definition that asks for a value.
    bool hasAttributeDefinitions() const;
    OdDbObjectId getLayoutId() const { return m_layout; }
    void setLayoutId(OdDbObjectId layout);

    /// Gives the entity to the drawing and appends it. Throws OdError: eAlreadyInDb for an entity that has an
    /// owner, eNotInDatabase, eNotOpenForWrite, eSelfReference for a reference that would make a block contain
    /// itself.
    OdDbObjectId appendOdDbEntity(OdDbEntity* entity);
    /// In order of appending, erased entities included.
    std::vector<OdDbStub*> const& entities() const { return m_entities; }
    OdDbObjectIterator newIterator(bool atBeginning = true, bool skipErased = true) const
    {
        return OdDbObjectIterator(m_entities, atBeginning, skipErased);
    }
    /// References to `other` stand in this block or, at any depth, in blocks that it refers to.
    bool contains(OdDbObjectId other) const;

    /// @name For filers
    /// @{
    void adopt(OdDbEntity& entity) { m_entities.push_back(entity.objectId().stub()); }
    void adoptBegin(OdDbBlockBegin& begin);
    void adoptEnd(OdDbBlockEnd& end);
    OdDbObjectId beginId() const { return OdDbObjectId(m_frame.begin); }
    OdDbObjectId endId() const { return OdDbObjectId(m_frame.end); }
    void addedToDatabase() override;
    /// Creates the head and the end mark where a file did not have them.
    void completeFrame();
    /// @}

protected:
    void visitOwned(std::function<void(OdDbStub&)> const& visit) const override;

private:
    struct Frame
    {
        OdDbStub* begin = nullptr;
        OdDbStub* end = nullptr;
    };
    OdDbBlockBegin& begin() const;

    OdDbObjectId m_layout;
    std::int16_t m_units = 0;
    std::int8_t m_explodable = 1;
    std::int8_t m_scaling = 0;
    OdDbNotCopied<std::vector<OdDbStub*>> m_entities;
    OdDbNotCopied<Frame> m_frame;
};
using OdDbBlockTableRecordPtr = OdSmartPtr<OdDbBlockTableRecord>;
