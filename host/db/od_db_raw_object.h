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

    OdDbPartList const* partList() const override { return &m_parts; }
    bool takesPart(OdDbEntity const&) const override { return true; }

private:
    std::string m_dxfName;
    OdDbPartList m_parts;
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
