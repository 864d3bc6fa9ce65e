#pragma once

#include "host/db/od_db_entity.h"

#include <array>

/// Base of entities that are one area between four corners: filled ones in a plane (od_db_filled_quad.h) and faces
/// in space (od_db_face.h). Corners are counted from 0; an index beyond 3 throws OdError(eInvalidIndex). A file
/// may leave out the last corner: it is then the same as the third.
class OdDbQuad : public OdDbEntity
{
    OD_DECLARE_CLASS(OdDbQuad)
public:
    void outline(OdDbOutlineSink& sink) const override;
    /// The corners.
    void getStretchPoints(std::vector<OdGePoint3d>& points) const override;
    OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset) override;
    void audit(OdDbAuditInfo& info) const override;

protected:
    static constexpr int kCorners = 4;
    using Corners = std::array<OdGePoint3d, kCorners>;

    OdDbQuad() = default;
    explicit OdDbQuad(Corners const& corners) : m_corners(corners), m_hasLast(true) {}

    static OdDbSection cornerSection(std::string_view marker);
    static void checkIndex(int index);

    /// In world coordinates.
    OdGePoint3d cornerAt(int index) const;
    void setCornerAt(int index, OdGePoint3d const& point);
    /// As files hold them, in the plane of cornerNormal().
    OdGePoint3d fileCornerAt(int index) const;
    template <class Change>
    void changeFileCorners(Change const& change)
    {
        for (OdGePoint3d& corner : m_corners)
            corner = change(corner);
    }
    Corners worldCorners() const;

    /// Files hold the corners in the plane of this normal.
    virtual OdGeVector3d cornerNormal() const { return {0, 0, 1}; }
    /// The corners in the order in which the border runs.
    virtual std::array<int, kCorners> border() const = 0;
    /// From the area to the one opposite, where it is extruded.
    virtual OdGeVector3d extrusion() const { return {}; }

private:
    static bool readLast(OdDbObject& object, OdDbTag const& tag);
    static void writeLast(OdDbObject const& object, OdDbTagSink& sink);

    Corners m_corners{};
    bool m_hasLast = false;
};
