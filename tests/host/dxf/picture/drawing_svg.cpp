// Shows the outline of a drawing's model space as an SVG picture, to be looked at beside what another program makes
// of the same file.
#include "host/db/od_db_database.h"
#include "host/db/od_db_entity.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/dxf/dxf_file.h"
#include "host/ut/ut_atomic_file.h"

#include <cstdio>
#include <sstream>

namespace {

/// Seen from above; Y points up in drawings and down in pictures.
class SvgSink : public OdDbOutlineSink
{
public:
    explicit SvgSink(OdGeExtents3d const& extents)
        : m_extents(extents), m_size((extents.maxPoint() - extents.minPoint()).length())
    {
    }

    void point(OdGePoint3d const& position) override
    {
        m_paths << "<circle cx='" << position.x << "' cy='" << -position.y << "' r='" << m_size / 300 << "'/>\n";
    }
    void segment(OdGePoint3d const& start, OdGePoint3d const& end) override { path({start, end}, false); }
    void arc(OdGeEllipticArc const& arc) override
    {
        constexpr int kPieces = 96;
        std::vector<OdGePoint3d> points;
        for (int i = 0; i <= kPieces; ++i)
            points.push_back(arc.evalPoint(arc.start + arc.sweep() * i / kPieces));
        path(points, false);
    }
    void spline(OdGeNurbCurve3d const& curve) override { path(curve.samplePoints(m_size / 5000), false); }
    void endless(OdGePoint3d const& base, OdGeVector3d const& direction, bool isRay) override
    {
        OdGeVector3d const far = direction.normal() * (2 * m_size);
        segment(isRay ? base : base - far, base + far);
    }
    void polygon(std::span<OdGePoint3d const> corners) override { path({corners.begin(), corners.end()}, true); }

    std::string picture() const
    {
        double const margin = m_size / 40;
        OdGePoint3d const low = m_extents.minPoint(), high = m_extents.maxPoint();
        std::ostringstream svg;
        svg << "<svg xmlns='http://www.w3.org/2000/svg' width='1200' viewBox='" << low.x - margin << ' '
            << -high.y - margin << ' ' << high.x - low.x + 2 * margin << ' ' << high.y - low.y + 2 * margin
            << "'>\n<g fill='none' stroke='black' stroke-width='" << m_size / 1000 << "'>\n"
            << m_paths.str() << "</g>\n</svg>\n";
        return svg.str();
    }

private:
    void path(std::vector<OdGePoint3d> const& points, bool isFilled)
    {
        m_paths << "<path d='";
        for (std::size_t i = 0; i < points.size(); ++i)
            m_paths << (i == 0 ? 'M' : 'L') << points[i].x << ' ' << -points[i].y;
        m_paths << (isFilled ? "Z' fill='#c0d0e0'/>\n" : "'/>\n");
    }

    OdGeExtents3d m_extents;
    double m_size;
    std::ostringstream m_paths;
};

void draw(OdString const& source, OdString const& target)
{
    OdDbDatabasePtr const database = dxf::readFile(source);
    auto const space = database->getModelSpaceId().open<OdDbBlockTableRecord>();
    OdGeExtents3d extents;
    for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step())
        extents.addExt(it.entity()->extents());
    if (!extents.isValidExtents())
        throw OdError(eInvalidInput, L"The drawing shows nothing");
    SvgSink sink(extents);
    for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step())
        it.entity()->outline(sink);
    ut::AtomicFile file(target);
    file.write(sink.picture());
    file.commit();
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 3) {
        std::fprintf(stderr, "usage: drawing_svg DRAWING PICTURE.svg\n");
        return 2;
    }
    draw(OdString::fromUtf8(argv[1]), OdString::fromUtf8(argv[2]));
    return 0;
} catch (std::exception const& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
