#include "host/db/entities/od_db_filled_quad.h"

#include "host/db/entities/od_db_extruded_outline.h"
#include "host/db/entities/od_db_plane_transform.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_property_sink.h"

OD_DEFINE_ABSTRACT_CLASS(OdDbFilledQuad, OdDbQuad)

OdDbFieldTable OdDbFilledQuad::quadTable()
{
    constexpr std::string_view kMarker = "AcDbTrace"; // of both classes
    // clang-format off
    static constexpr OdDbField s_end[] = {
        odField<&OdDbFilledQuad::m_thickness>(39),
        odField<&OdDbFilledQuad::m_normal>   (210),
    };
    // clang-format on
    return OdDbFieldTable(
        {entitySection(), cornerSection(kMarker), {.marker = kMarker, .fields = s_end, .continues = true}});
}

void OdDbFilledQuad::setNormal(OdGeVector3d const& normal)
{
    OdGeVector3d const unit = odDbUnitNormal(normal);
    assertWriteEnabled();
    changeFileCorners([&](OdGePoint3d const& corner) { return odDbToPlane(odDbToWorld(corner, m_normal), unit); });
    m_normal = unit;
}

void OdDbFilledQuad::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
}

OdGeVector3d OdDbFilledQuad::extrusion() const
{
    return odDbExtrusion(m_normal, m_thickness);
}

OdResult OdDbFilledQuad::transformBy(OdGeMatrix3d const& transformation)
{
    auto const plane = OdDbPlaneTransform::make(transformation, m_normal);
    if (!plane || (m_thickness != 0 && !plane->keepsExtrusion()))
        return eDegenerateGeometry;
    assertWriteEnabled();
    changeFileCorners([&](OdGePoint3d const& corner) { return *plane * corner; });
    m_thickness *= plane->extrusionScale();
    m_normal = plane->normal();
    return eOk;
}

void OdDbFilledQuad::listProperties(OdDbPropertySink& sink) const
{
    for (OdGePoint3d const& corner : worldCorners())
        sink.point(L"corner", corner);
    odDbListExtrusion(sink, m_normal, m_thickness);
}
