#include "host/app/sds_ssget.h"

#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/selection_finder.h"
#include "host/db/filer/od_db_record_writer.h"
#include "host/db/oa_space.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/sds/ca_resbuf.h"
#include "host/sds/sds_names.h"
#include "host/sds/sds_record.h"
#include "host/ut/ut_text.h"

#include <algorithm>
#include <optional>

namespace {

using Ids = std::vector<OdDbObjectId>;
using EMode = ca::SelectionFinder::EMode;

struct Request
{
    ca::CaDoc& document;
    void const* pt1; ///< coordinates, or a list of points
    double const* pt2;

    double const* firstPoint() const { return static_cast<double const*>(pt1); }
    sds_resbuf const* firstOfList() const { return static_cast<sds_resbuf const*>(pt1); }
    OdGePoint3d world(double const* point) const
    {
        return oa::ucsToWorld(document.database()) * OdGePoint3d(point[0], point[1], point[2]);
    }
};

/// None when a point is missing.
std::optional<Ids> inRectangle(Request const& request, EMode mode)
{
    if (!request.pt1 || !request.pt2)
        return std::nullopt;
    ca::SelectionFinder const finder(request.document);
    return finder.in(ca::SelectionRegion::rectangle(finder.worldToPlane(), request.world(request.firstPoint()),
                                                    request.world(request.pt2)),
                     mode);
}

/// Empty when something else than points stands in the list.
std::vector<OdGePoint3d> pointsOf(Request const& request)
{
    std::vector<OdGePoint3d> points;
    for (sds_resbuf const* node = request.firstOfList(); node; node = node->rbnext) {
        if (node->restype != RTPOINT && node->restype != RT3DPOINT)
            return {};
        points.push_back(request.world(node->resval.rpoint));
    }
    return points;
}

/// None when there are fewer points than the shape needs.
std::optional<Ids> inPolygon(Request const& request, EMode mode)
{
    constexpr std::size_t kLeast = 3;
    std::vector<OdGePoint3d> const corners = pointsOf(request);
    if (corners.size() < kLeast)
        return std::nullopt;
    ca::SelectionFinder const finder(request.document);
    return finder.in(ca::SelectionRegion::polygon(finder.worldToPlane(), corners), mode);
}

std::optional<Ids> alongFence(Request const& request)
{
    constexpr std::size_t kLeast = 2;
    std::vector<OdGePoint3d> const points = pointsOf(request);
    if (points.size() < kLeast)
        return std::nullopt;
    ca::SelectionFinder const finder(request.document);
    return finder.in(ca::SelectionRegion::fence(finder.worldToPlane(), points), EMode::kCrossing);
}

std::optional<Ids> under(Request const& request)
{
    if (!request.pt1)
        return std::nullopt;
    return Ids{ca::SelectionFinder(request.document).at(request.world(request.firstPoint()))};
}

std::optional<Ids> everything(Request const& request)
{
    Ids ids;
    for (OdDbStub* const record : request.document.database()->table(OdDbTableKind::kBlock).records()) {
        auto const& block = static_cast<OdDbBlockTableRecord const&>(*record->object);
        if (record->erased || !block.isLayout())
            continue;
        for (OdDbStub* const stub : block.entities())
            ids.push_back(OdDbObjectId(stub));
    }
    return ids;
}

std::optional<Ids> previous(Request const& request)
{
    OdDbSelectionSetPtr const set = request.document.previousSelection();
    return set.isNull() ? Ids() : set->objectIds();
}

struct Mode
{
    wchar_t const* name;
    std::optional<Ids> (*find)(Request const&);
};
constexpr Mode s_modes[] = {
    {L"", &under},
    {L"X", &everything},
    {L"A", [](Request const& request) { return std::optional(ca::SelectionFinder(request.document).all()); }},
    {L"L",
     [](Request const& request) { return std::optional(Ids{ca::SelectionFinder(request.document).last()}); }},
    {L"P", &previous},
    {L"W", [](Request const& request) { return inRectangle(request, EMode::kWindow); }},
    {L"C", [](Request const& request) { return inRectangle(request, EMode::kCrossing); }},
    {L"WP", [](Request const& request) { return inPolygon(request, EMode::kWindow); }},
    {L"CP", [](Request const& request) { return inPolygon(request, EMode::kCrossing); }},
    {L"F", &alongFence},
};

Mode const* findMode(wchar_t const* text)
{
    OdString name = OdString(text).upper();
    if (name.startsWith(L"_"))
        name.deleteChars(0, 1);
    auto const it = std::find_if(std::begin(s_modes), std::end(s_modes),
                                 [&name](Mode const& mode) { return name == mode.name; });
    return it == std::end(s_modes) ? nullptr : it;
}

/// The tags of an entity as a drawing file would hold them, by which filters are compared.
class FilterSubject
{
public:
    explicit FilterSubject(OdDbObjectId id) { odDbWriteRecord(*id.safeOpenObject(), m_tags); }

    bool agrees(sds_resbuf const& wanted) const
    {
        return std::any_of(m_tags.begin(), m_tags.end(), [&](OdDbTag const& tag) {
            return tag.code == wanted.restype && sameValue(tag, wanted);
        });
    }

private:
    bool sameValue(OdDbTag const& tag, sds_resbuf const& wanted) const
    {
        switch (ca::restypeToResvalType(wanted.restype)) {
        case RTSTR:
            return wanted.resval.rstring && ut::matchesWildcard(OdString::fromUtf8(tag.text).upper().str(),
                                                                OdString(wanted.resval.rstring).upper().str());
        case RTREAL: return tag.kind == OdDbTagKind::kReal && OdEqual(ca::realInChain(tag), wanted.resval.rreal);
        case RTSHORT: return tag.kind == OdDbTagKind::kInteger && tag.integer == wanted.resval.rint;
        case RTLONG:
        case RTINT64: return tag.kind == OdDbTagKind::kInteger && tag.integer == wanted.resval.rlong;
        case RT3DPOINT: return tag.kind == OdDbTagKind::kReal && samePoint(wanted);
        default: return false;
        }
    }
    bool samePoint(sds_resbuf const& wanted) const
    {
        for (int i = 0; i < 3; ++i) {
            bool const isSame = std::any_of(m_tags.begin(), m_tags.end(), [&](OdDbTag const& tag) {
                return tag.code == wanted.restype + 10 * i && OdEqual(tag.real, wanted.resval.rpoint[i]);
            });
            if (!isSame)
                return false;
        }
        return true;
    }

    OdDbTagList m_tags;
};

bool isUsable(sds_resbuf const* filter)
{
    constexpr short kinds[] = {RTSTR, RTREAL, RTSHORT, RTLONG, RTINT64, RT3DPOINT};
    for (sds_resbuf const* node = filter; node; node = node->rbnext)
        if (node->restype < 0 ||
            std::ranges::find(kinds, ca::restypeToResvalType(node->restype)) == std::end(kinds))
            return false;
    return true;
}

bool passes(OdDbObjectId id, sds_resbuf const* filter)
{
    if (!filter)
        return true;
    FilterSubject const subject(id);
    for (sds_resbuf const* node = filter; node; node = node->rbnext)
        if (!subject.agrees(*node))
            return false;
    return true;
}

} // namespace

int sds_ssget(wchar_t const* mode, void const* pt1, double const* pt2, sds_resbuf const* filter,
              std::int64_t* result)
{
    ca::CaDoc* const document = ca::curDoc();
    Mode const* const known = findMode(mode);
    if (!document || !known || !isUsable(filter))
        return RTERROR;
    std::optional<Ids> ids = known->find(Request{*document, pt1, pt2});
    if (!ids)
        return RTERROR;
    std::erase_if(*ids, [filter](OdDbObjectId id) { return id.isErased() || !passes(id, filter); });
    if (ids->empty())
        return RTERROR;
    OdDbSelectionSetPtr const set = OdDbSelectionSet::create(document->database());
    for (OdDbObjectId const id : *ids)
        set->append(id);
    SdsName const name = ca::nameOf(set.get());
    std::copy(std::begin(name.words), std::end(name.words), result);
    return RTNORM;
}
