#pragma once

#include "host/db/od_db_entity.h"

// Records of classes that the host does not know: what can be understood of any entity is read into fields, all
// other tags are kept as they stand and written back.

/// An entity of a class that the host does not know. It can be erased and change its layer and color, but has no
/// geometry: it cannot be transformed or picked.
class OdDbRawEntity : public OdDbEntity
{
    OD_DB_DECLARE_CLASS(OdDbRawEntity)
public:
    OdDbRawEntity() = default;
    explicit OdDbRawEntity(std::string_view dxfName) : m_dxfName(dxfName) {}
    std::string_view dxfName() const override { return m_dxfName; }

    std::span<OdDbStub* const> subentities() const override { return m_subentities; }
    OdDbObjectId sequenceEnd() const override { return OdDbObjectId(m_sequenceEnd.stub); }
    /// For filers: entities that follow this one in the file and belong to it.
    void adoptSubentity(OdDbEntity& entity) { m_subentities.push_back(entity.objectId().stub()); }
    void adoptSequenceEnd(OdDbEntity& entity) { m_sequenceEnd.stub = entity.objectId().stub(); }

private:
    struct End
    {
        OdDbStub* stub = nullptr;
    };
    std::string m_dxfName;
    OdDbNotCopied<std::vector<OdDbStub*>> m_subentities;
    OdDbNotCopied<End> m_sequenceEnd;
};

/// An object of a class that the host does not know.
class OdDbRawObject : public OdDbObject
{
    OD_DB_DECLARE_CLASS(OdDbRawObject)
public:
    OdDbRawObject() = default;
    explicit OdDbRawObject(std::string_view dxfName) : m_dxfName(dxfName) {}
    std::string_view dxfName() const override { return m_dxfName; }
    bool standsAmongFileObjects() const override { return true; }

private:
    std::string m_dxfName;
};
