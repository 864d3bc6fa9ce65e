// What an audit says of the vertices of a polyline, which no list of fields knows.
#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_polyline.h"

namespace {

/// The numbers of a vertex, for whoever treats them alike.
template <class Vertex>
auto numbersOf(Vertex& vertex)
{
    return std::array{&vertex.point.x, &vertex.point.y, &vertex.bulge, &vertex.startWidth, &vertex.endWidth};
}

bool isFinite(auto const& vertex)
{
    auto const numbers = numbersOf(vertex);
    return std::all_of(numbers.begin(), numbers.end(),
                       [](double const* number) { return std::isfinite(*number); });
}

} // namespace

void OdDbPolyline::mendVertices()
{
    assertWriteEnabled();
    for (Vertex& vertex : m_vertices)
        for (double* const number : numbersOf(vertex))
            if (!std::isfinite(*number))
                *number = 0;
}

void OdDbPolyline::audit(OdDbAuditInfo& info) const
{
    OdDbEntity::audit(info);
    if (m_vertices.empty())
        info.reportUseless(*this, L"it has no vertices");
    auto const numBad = std::count_if(m_vertices.begin(), m_vertices.end(),
                                      [](Vertex const& vertex) { return !isFinite(vertex); });
    if (numBad > 0)
        info.report(*this, odFormat(L"%lld of its vertices are not finite", static_cast<long long>(numBad)),
                    L"0 taken", [](OdDbObject& object) { static_cast<OdDbPolyline&>(object).mendVertices(); });
}
