// What an audit says of the axes of an ellipse, and how it makes them fit.
#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_ellipse.h"

namespace {

/// Cosine of the angle between normal and major axis from which on a drafter sees the difference.
constexpr double kSlanting = 1e-6;

} // namespace

void OdDbEllipse::mendRatio()
{
    assertWriteEnabled();
    OdGeVector3d const minor = minorAxis();
    m_ratio = radiusRatio();
    if (m_ratio <= 1)
        return;
    if (!isClosed()) {
        m_start -= OdaPI2;
        m_end -= OdaPI2;
    }
    m_majorAxis = minor;
    m_ratio = 1 / m_ratio;
}

void OdDbEllipse::audit(OdDbAuditInfo& info) const
{
    OdDbCurve::audit(info);
    if (m_majorAxis.length() == 0) {
        info.reportUseless(*this, L"its major axis has no length");
        return;
    }
    OdGeVector3d const minor = minorAxis();
    if (minor.length() == 0) {
        info.reportUseless(*this, L"its major axis runs along its normal");
        return;
    }
    if (std::abs(m_majorAxis.dotProduct(planeNormal())) > kSlanting * m_majorAxis.length())
        info.report(*this, L"its normal does not stand on its major axis", L"normal turned",
                    [](OdDbObject& object) {
                        auto& ellipse = static_cast<OdDbEllipse&>(object);
                        OdGeVector3d const along = ellipse.majorAxis() / ellipse.majorAxis().length();
                        OdGeVector3d const normal = ellipse.planeNormal();
                        ellipse.setNormal(normal - along * normal.dotProduct(along));
                    });
    if (!(m_ratio > 0 && m_ratio <= 1))
        info.report(*this, odFormat(L"its radius ratio %g is not above 0 and at most 1", m_ratio),
                    L"axes made to fit",
                    [](OdDbObject& object) { static_cast<OdDbEllipse&>(object).mendRatio(); });
}
