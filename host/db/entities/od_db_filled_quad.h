#pragma once

#include "host/db/entities/od_db_quad.h"

/// A filled area in a plane, extruded by a thickness: base of OdDbSolid and OdDbTrace, which differ in name only.
/// The third and the fourth corner are crossed: the border runs through corners 0, 1, 3, 2.
class OdDbFilledQuad : public OdDbQuad
{
    OD_DECLARE_CLASS(OdDbFilledQuad)
public:
    /// In world coordinates; throws OdError(eInvalidIndex).
    OdGePoint3d getPointAt(int index) const { return cornerAt(index); }
    void setPointAt(int index, OdGePoint3d const& point) { setCornerAt(index, point); }
    OdGeVector3d normal() const { return m_normal; }
    /// The corners stay where they are in the world. Throws OdError(eDegenerateGeometry) for a zero vector.
    void setNormal(OdGeVector3d const& normal);
    /// Signed length of the extrusion along the normal.
    double thickness() const { return m_thickness; }
    void setThickness(double thickness);
    /// Height of the first corner above the world origin, along the normal. Files can give each corner its own.
    double elevation() const { return fileCornerAt(0).z; }

    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    void listProperties(OdDbPropertySink& sink) const override;

protected:
    OdDbFilledQuad() = default;
    OdDbFilledQuad(OdGePoint3d const& p0, OdGePoint3d const& p1, OdGePoint3d const& p2, OdGePoint3d const& p3)
        : OdDbQuad({p0, p1, p2, p3})
    {
    }
    static OdDbFieldTable quadTable();

    OdGeVector3d cornerNormal() const override { return m_normal; }
    std::array<int, kCorners> border() const override { return {0, 1, 3, 2}; }
    OdGeVector3d extrusion() const override;

private:
    double m_thickness = 0.0;
    OdGeVector3d m_normal{0, 0, 1};
};
