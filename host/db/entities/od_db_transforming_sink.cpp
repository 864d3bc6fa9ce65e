#include "host/db/entities/od_db_transforming_sink.h"

void OdDbTransformingSink::polygon(std::span<OdGePoint3d const> corners)
{
    m_corners.clear();
    for (OdGePoint3d const& corner : corners)
        m_corners.push_back(m_transformation * corner);
    m_target.polygon(m_corners);
}
