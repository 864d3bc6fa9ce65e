#include "host/db/records/od_db_abstract_view_table_record.h"

OD_DEFINE_ABSTRACT_CLASS(OdDbAbstractViewTableRecord, OdDbSymbolTableRecord)

void OdDbAbstractViewTableRecord::setCenterPoint(OdGePoint2d const& point)
{
    assertWriteEnabled();
    m_center = point;
}

void OdDbAbstractViewTableRecord::setViewDirection(OdGeVector3d const& direction)
{
    if (direction.isZeroLength())
        throw OdError(eDegenerateGeometry, L"A view needs a direction");
    assertWriteEnabled();
    m_direction = direction;
}

void OdDbAbstractViewTableRecord::setTarget(OdGePoint3d const& point)
{
    assertWriteEnabled();
    m_target = point;
}

void OdDbAbstractViewTableRecord::setLensLength(double length)
{
    if (!(length > 0))
        throw OdError(eOutOfRange, L"The lens length of a view must be positive");
    assertWriteEnabled();
    m_lensLength = length;
}

void OdDbAbstractViewTableRecord::setViewTwist(double angle)
{
    assertWriteEnabled();
    m_twist = OdDbAngle::ofRadians(angle);
}

void OdDbAbstractViewTableRecord::setPerspectiveEnabled(bool on)
{
    assertWriteEnabled();
    m_viewMode = static_cast<std::int16_t>(on ? m_viewMode | 1 : m_viewMode & ~1);
}

void OdDbAbstractViewTableRecord::setUcs(OdGePoint3d const& origin, OdGeVector3d const& xAxis,
                                         OdGeVector3d const& yAxis, OdDbObjectId named)
{
    assertWriteEnabled();
    m_ucsOrigin = origin;
    m_ucsXAxis = xAxis;
    m_ucsYAxis = yAxis;
    m_ucsOrthographicView = 0;
    m_namedUcs = named;
}
