#include "host/app/list_sink.h"

#include "host/app/color_text.h"
#include "host/app/line_weight.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/od_db_database.h"
#include "host/db/od_db_entity.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_layout.h"
#include "host/geom/od_ge_angle.h"

#include <cmath>

namespace ca {

namespace {

/// Lines of an entity stand below its name.
constexpr wchar_t const* kBelowName = L"          ";

/// Name of a record of a table, or the handle of anything else.
OdString nameOf(OdDbObjectId id)
{
    if (!id.isValid())
        return L"none";
    auto const* record = odCast<OdDbSymbolTableRecord>(id.stub()->object);
    return record ? L"\"" + record->getName() + L"\"" : id.getHandle().ascii();
}

struct EntityName
{
    wchar_t const* className;
    wchar_t const* shown;
};
/// Where the name in files is not what users say.
constexpr EntityName kNames[] = {
    {L"OdDbBlockReference", L"BLOCK REFERENCE"},
    {L"OdDbMInsertBlock", L"MULTIPLE BLOCK REFERENCE"},
    {L"OdDbAttributeDefinition", L"ATTRIBUTE DEFINITION"},
    {L"OdDbPolyline", L"LIGHTWEIGHT POLYLINE"},
    {L"OdDb2dPolyline", L"2D POLYLINE"},
    {L"OdDb3dPolyline", L"3D POLYLINE"},
    {L"OdDbPolygonMesh", L"POLYGON MESH"},
    {L"OdDbPolyFaceMesh", L"POLYFACE MESH"},
    {L"OdDbFace", L"3D FACE"},
};

OdString shownName(OdDbEntity const& entity)
{
    for (EntityName const& each : kNames)
        if (entity.isA()->name() == each.className)
            return each.shown;
    return OdString::fromUtf8(entity.dxfName());
}

OdString spaceOf(OdDbEntity const& entity)
{
    auto const* block =
        entity.ownerId().isValid() ? odCast<OdDbBlockTableRecord>(entity.ownerId().stub()->object) : nullptr;
    if (!block)
        return L"none";
    if (!block->isLayout())
        return L"Block \"" + block->getName() + L"\"";
    if (!block->isPaperSpace())
        return L"Model space";
    auto const* layout =
        block->getLayoutId().isValid() ? odCast<OdDbLayout>(block->getLayoutId().stub()->object) : nullptr;
    return layout ? L"Paper space, layout \"" + layout->getLayoutName() + L"\"" : OdString(L"Paper space");
}

OdString coordinates(double x, double y, double z, UnitFormat const& format)
{
    return L"X=" + distanceText(x, format) + L"  Y=" + distanceText(y, format) + L"  Z=" + distanceText(z, format);
}

/// What most entities have by layer is shown where it is not so.
void listCommonProperties(OdDbEntity const& entity, ListSink& sink)
{
    sink.text(L"Space", spaceOf(entity));
    sink.text(L"Handle", entity.getDbHandle().ascii());
    if (!entity.color().isByLayer())
        sink.text(L"Color", colorText(entity.color()));
    OdDbDatabase const* const db = entity.database();
    if (!entity.linetypeId().isNull() && entity.linetypeId() != db->getLinetypeByLayerId())
        sink.reference(L"Linetype", entity.linetypeId());
    if (entity.linetypeScale() != 1)
        sink.number(L"Linetype scale", entity.linetypeScale());
    if (entity.lineWeight() != kLineWeightByLayer)
        sink.text(L"Lineweight", entityLineWeightText(entity.lineWeight()));
    if (!entity.isVisible())
        sink.flag(L"Visible", false);
}

} // namespace

void ListSink::point(wchar_t const* name, OdGePoint3d const& value)
{
    OdGePoint3d const p = m_worldToUcs * value;
    property(name, coordinates(p.x, p.y, p.z, m_format));
}

void ListSink::vector(wchar_t const* name, OdGeVector3d const& value)
{
    OdGeVector3d const v = m_worldToUcs * value;
    // What has length 1 is a direction; feet and inches would say nothing of it.
    UnitFormat format = m_format;
    if (std::abs(v.length() - 1) <= OdGeContext::gTol.equalVector())
        format.linear = ELinearUnits::kDecimal;
    property(name, coordinates(v.x, v.y, v.z, format));
}

void ListSink::distance(wchar_t const* name, double value)
{
    property(name, distanceText(value, m_format));
}

void ListSink::area(wchar_t const* name, double value)
{
    property(name, areaText(value, m_format));
}

void ListSink::angle(wchar_t const* name, double radians)
{
    property(name, turnText(radians, m_format));
}

void ListSink::direction(wchar_t const* name, OdGeVector3d const& value)
{
    property(name, angleText((m_worldToUcs * value).convert2d().angle(), m_format));
}

void ListSink::direction(wchar_t const* name, double radians, OdGeVector3d const& normal)
{
    OdGeVector3d const inUcs =
        m_worldToUcs * (odDbPlaneToWorld(normal) * OdGeVector3d(std::cos(radians), std::sin(radians), 0));
    OdGeVector3d const normalInUcs = m_worldToUcs * normal;
    // In a plane that stands askew, the user's X axis has no direction to count from.
    bool const isParallel = normalInUcs.convert2d().length() <= OdGeContext::gTol.equalVector();
    property(name, isParallel ? angleText(inUcs.convert2d().angle(), m_format) : turnText(radians, m_format));
}

void ListSink::number(wchar_t const* name, double value)
{
    property(name, decimalText(value, m_format.linearPrecision));
}

void ListSink::count(wchar_t const* name, long long value)
{
    property(name, odFormat(L"%lld", value));
}

void ListSink::text(wchar_t const* name, OdString const& value)
{
    property(name, value);
}

void ListSink::flag(wchar_t const* name, bool value)
{
    property(name, value ? L"yes" : L"no");
}

void ListSink::reference(wchar_t const* name, OdDbObjectId value)
{
    property(name, nameOf(value));
}

void ListSink::part(wchar_t const* name, int number)
{
    m_indent = OdString();
    line(odFormat(L"%ls %d", name, number));
    m_indent = L"  ";
}

void listEntity(OdDbEntity const& entity, UnitFormat const& format, OdGeMatrix3d const& worldToUcs,
                ListSink::Writer const& write)
{
    OdString const name = shownName(entity);
    std::size_t const width = OdString(kBelowName).getLength();
    OdString const gap(name.getLength() < width ? width - name.getLength() : 1, L' ');
    write(name + gap + L"Layer: " + nameOf(entity.layerId()));
    ListSink sink(format, worldToUcs, [&write](OdString const& line) { write(kBelowName + line); });
    listCommonProperties(entity, sink);
    entity.listProperties(sink);
}

} // namespace ca
