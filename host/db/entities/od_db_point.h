#pragma once

#include "host/db/od_db_entity.h"

/// A place in the world, shown by the drawing's point symbol.
class OdDbPoint : public OdDbEntity
{
    OD_DB_DECLARE_CLASS(OdDbPoint)
public:
    OdDbPoint() = default;
    explicit OdDbPoint(OdGePoint3d const& position) : m_position(position) {}

    OdGePoint3d position() const { return m_position; }
    void setPosition(OdGePoint3d const& position);
    /// Direction in which the thickness extrudes; also the plane of the symbol.
    OdGeVector3d normal() const { return m_normal; }
    /// Throws OdError(eDegenerateGeometry) for a zero vector.
    void setNormal(OdGeVector3d const& normal);
    double thickness() const { return m_thickness; }
    void setThickness(double thickness);
    /// Turn of the symbol in its plane, radians.
    double symbolRotation() const { return m_symbolRotation.radians(); }
    void setSymbolRotation(double angle);

    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void outline(OdDbOutlineSink& sink) const override;
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void listProperties(OdDbPropertySink& sink) const override;

private:
    OdGePoint3d m_position;
    double m_thickness = 0.0;
    OdGeVector3d m_normal{0, 0, 1};
    OdDbAngle m_symbolRotation;
};
using OdDbPointPtr = OdSmartPtr<OdDbPoint>;
