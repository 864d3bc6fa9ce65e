#include "host/db/entities/od_db_quad.h"

#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_stretch.h"
#include "host/db/entities/od_db_transform.h"

OD_DEFINE_ABSTRACT_CLASS(OdDbQuad, OdDbEntity)

namespace {

constexpr int kLastCorner = 13;

bool isSamePlace(OdGePoint3d const& a, OdGePoint3d const& b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

} // namespace

OdDbSection OdDbQuad::cornerSection(std::string_view marker)
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odPlaceField<OdDbQuad, [](OdDbQuad& q) -> auto& { return q.m_corners[0]; }>(10, OdDbWriteRule::kAlways),
        odPlaceField<OdDbQuad, [](OdDbQuad& q) -> auto& { return q.m_corners[1]; }>(11, OdDbWriteRule::kAlways),
        odPlaceField<OdDbQuad, [](OdDbQuad& q) -> auto& { return q.m_corners[2]; }>(12, OdDbWriteRule::kAlways),
    };
// clang-format on
return {marker, s_fields, &readLast, &writeLast};
}

bool OdDbQuad::readLast(OdDbObject& object, OdDbTag const& tag)
{
    auto& quad = static_cast<OdDbQuad&>(object);
    OdGePoint3d& corner = quad.m_corners[3];
    double* const coordinates[] = {&corner.x, &corner.y, &corner.z};
    int const index = (tag.code - kLastCorner) / 10;
    if (tag.kind != OdDbTagKind::kReal || tag.code < kLastCorner || tag.code % 10 != kLastCorner % 10 || index > 2)
        return false;
    *coordinates[index] = tag.real;
    quad.m_hasLast = true;
    return true;
}

void OdDbQuad::writeLast(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& quad = static_cast<OdDbQuad const&>(object);
    if (quad.m_hasLast)
        sink.point(kLastCorner, &quad.m_corners[3].x, 3);
}

void OdDbQuad::checkIndex(int index)
{
    if (index < 0 || index >= kCorners)
        throw OdError(eInvalidIndex);
}

OdGePoint3d OdDbQuad::fileCornerAt(int index) const
{
    checkIndex(index);
    return m_corners[static_cast<std::size_t>(index == 3 && !m_hasLast ? 2 : index)];
}

OdGePoint3d OdDbQuad::cornerAt(int index) const
{
    return odDbToWorld(fileCornerAt(index), cornerNormal());
}

OdDbQuad::Corners OdDbQuad::worldCorners() const
{
    return {cornerAt(0), cornerAt(1), cornerAt(2), cornerAt(3)};
}

void OdDbQuad::setCornerAt(int index, OdGePoint3d const& point)
{
    checkIndex(index);
    assertWriteEnabled();
    m_corners[static_cast<std::size_t>(index)] = odDbToPlane(point, cornerNormal());
    m_hasLast |= index == 3;
}

void OdDbQuad::getStretchPoints(std::vector<OdGePoint3d>& points) const
{
    for (int i = 0; i < (m_hasLast ? kCorners : 3); ++i)
        points.push_back(cornerAt(i));
}

OdResult OdDbQuad::moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset)
{
    auto const isCaught = odDbCaughtPoints(indices, m_hasLast ? kCorners : 3);
    if (!isCaught)
        return eInvalidIndex;
    assertWriteEnabled();
    OdGeVector3d const inPlane = odDbWorldToPlane(cornerNormal()) * offset;
    for (std::size_t i = 0; i < isCaught->size(); ++i)
        if ((*isCaught)[i])
            m_corners[i] += inPlane;
    return eOk;
}

void OdDbQuad::audit(OdDbAuditInfo& info) const
{
    OdDbEntity::audit(info);
    bool const isPlace =
        std::ranges::all_of(m_corners.begin(), m_corners.begin() + (m_hasLast ? kCorners : 3),
                            [this](OdGePoint3d const& corner) { return isSamePlace(corner, m_corners.front()); });
    if (isPlace)
        info.reportUseless(*this, L"all its corners are at one place");
}
