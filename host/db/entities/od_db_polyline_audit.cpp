// What an audit says of the vertices of a polyline, which no list of fields knows.
#include "host/db/audit/od_db_audit_info.h"
#include "host/db/entities/od_db_polyline.h"

#include <numeric>

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

void OdDbPolyline::mendWidths()
{
    assertWriteEnabled();
    for (Vertex& vertex : m_vertices) {
        vertex.startWidth = std::max(vertex.startWidth, 0.0);
        vertex.endWidth = std::max(vertex.endWidth, 0.0);
    }
    m_constantWidth = std::max(m_constantWidth, 0.0);
}

void OdDbPolyline::audit(OdDbAuditInfo& info) const
{
    OdDbCurve::audit(info);
    if (m_vertices.empty())
        info.reportUseless(*this, L"it has no vertices");
    if (m_constantWidth < 0)
        info.report(*this, odFormat(L"its constant width %g is negative", m_constantWidth), L"0 taken",
                    [](OdDbObject& object) { static_cast<OdDbPolyline&>(object).mendWidths(); });
    auto const numNegative =
        std::accumulate(m_vertices.begin(), m_vertices.end(), 0LL, [](long long sum, Vertex const& vertex) {
            return sum + (vertex.startWidth < 0 ? 1 : 0) + (vertex.endWidth < 0 ? 1 : 0);
        });
    if (numNegative > 0)
        info.report(*this, odFormat(L"%lld of its widths are negative", numNegative), L"0 taken",
                    [](OdDbObject& object) { static_cast<OdDbPolyline&>(object).mendWidths(); });
    auto const numBad = std::count_if(m_vertices.begin(), m_vertices.end(),
                                      [](Vertex const& vertex) { return !isFinite(vertex); });
    if (numBad > 0)
        info.report(*this, odFormat(L"%lld of its vertices are not finite", static_cast<long long>(numBad)),
                    L"0 taken", [](OdDbObject& object) { static_cast<OdDbPolyline&>(object).mendVertices(); });
}
