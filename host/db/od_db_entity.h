#pragma once

#include "host/db/od_db_color.h"
#include "host/db/od_db_object.h"
#include "host/db/od_db_outline.h"
#include "host/geom/od_ge_extents3d.h"
#include "host/geom/od_ge_matrix3d.h"

/// Base of everything that is drawn. Coordinates are world coordinates unless an accessor says ECS.
class OdDbEntity : public OdDbObject
{
    OD_DECLARE_CLASS(OdDbEntity)
public:
    OdCmColor const& color() const { return m_color; }
    void setColor(OdCmColor const& color);
    OdDbObjectId layerId() const { return m_layer; }
    void setLayer(OdDbObjectId layer);
    OdDbObjectId linetypeId() const { return m_linetype; }
    void setLinetype(OdDbObjectId linetype);
    double linetypeScale() const { return m_linetypeScale; }
    /// Throws OdError(eOutOfRange) for a scale that is not positive.
    void setLinetypeScale(double scale);
    /// Hundredths of a millimetre; -1 by layer, -2 by block, -3 the default.
    int lineWeight() const { return m_lineWeight; }
    void setLineWeight(int weight);
    bool isVisible() const { return m_invisible == 0; }
    void setVisible(bool visible);

    /// Takes color, layer, linetype, linetype scale and lineweight that are current in the drawing; texts take the
    /// current text style too.
    virtual void setDatabaseDefaults(OdDbDatabase& database);

    /// Moves, turns, scales the entity; eOk, or an error that leaves it as it was: eNotApplicable for entities
    /// that the host only keeps, eDegenerateGeometry for a transformation that the class cannot take.
    virtual OdResult transformBy(OdGeMatrix3d const& transformation);
    /// Gives the true geometry to the receiver; nothing for entities that the host only keeps.
    virtual void outline(OdDbOutlineSink& sink) const;
    /// Box around the outline; empty for an entity without.
    OdGeExtents3d extents() const;

    /// Entities that belong to this one and follow it in files (attributes), in order, erased ones included.
    virtual std::span<OdDbStub* const> subentities() const { return {}; }
    /// The end mark that files put behind the subentities; null when there is none.
    virtual OdDbObjectId sequenceEnd() const { return {}; }

    static OdDbSection entitySection();

protected:
    OdDbEntity() = default;
    void visitOwned(std::function<void(OdDbStub&)> const& visit) const override;

private:
    OdDbObjectId m_layer;
    OdDbObjectId m_linetype;
    double m_linetypeScale = 1.0;
    OdCmColor m_color;
    std::int16_t m_lineWeight = -1;
    std::int16_t m_invisible = 0;
};
using OdDbEntityPtr = OdSmartPtr<OdDbEntity>;
