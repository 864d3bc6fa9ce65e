#include "host/sds/sds_entity_reading.h"

#include "host/db/entities/od_db_block_reference.h"
#include "host/db/filer/od_db_class_registry.h"
#include "host/db/filer/od_db_record_reader.h"
#include "host/db/od_db_database.h"
#include "host/db/od_db_raw_object.h"
#include "host/db/od_dxf_code.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_layer_table_record.h"
#include "host/db/records/od_db_reg_app_table_record.h"

#include <map>

namespace ca {
namespace {

constexpr int kMarker = 100;
constexpr int kApplication = 1001;
constexpr std::string_view kEntityMarker = "AcDbEntity";

/// Points that have two coordinates in files, in entities of which the host only keeps the groups.
struct FlatPoint
{
    std::string_view type;
    int code;
    int first = 0; ///< how many points of this code in front have three
};
// clang-format off
constexpr FlatPoint kFlatPoints[] = {
    {"HATCH",       10, 1}, {"HATCH",       11}, {"HATCH",    12}, {"HATCH",    13},
    {"MPOLYGON",    10, 1}, {"MPOLYGON",    11}, {"MPOLYGON", 12}, {"MPOLYGON", 13},
    {"IMAGE",       13},    {"IMAGE",       14}, {"WIPEOUT",  13}, {"WIPEOUT",  14},
    {"VIEWPORT",    12},    {"VIEWPORT",    13}, {"VIEWPORT", 14}, {"VIEWPORT", 15},
    {"PDFUNDERLAY", 11},    {"DWFUNDERLAY", 11}, {"DGNUNDERLAY", 11},
};

/// Groups that files always hold and lists need not.
struct OptionalGroup
{
    std::string_view type;
    int code;
};
constexpr OptionalGroup kOptionalGroups[] = {
    {"POLYLINE", 10}, {"MTEXT", 40}, {"ELLIPSE", 41}, {"ELLIPSE", 42}, {"ATTDEF", 3}, {"VERTEX", 10},
    {"BLOCK",    10}, {"BLOCK", 1},
};
// clang-format on

/// Hands tags to a record reader. The third coordinate of a point is left out where the class has two.
class TagFeeder
{
public:
    TagFeeder(OdDbEntity& entity, OdDbReferenceResolver& names) : m_reader(entity, names) {}

    void put(OdDbTag const& tag)
    {
        bool const isThird = followPoint(tag);
        bool const isTaken = mayStandAnywhere(tag) && m_reader.putIntoAnySection(tag);
        if (tag.code == m_pointCode)
            m_isPointTaken = isTaken;
        bool const isOfFlatPoint = isThird && m_isPointTaken;
        if (!isTaken && !isOfFlatPoint)
            m_reader.put(tag);
    }
    bool finish() { return m_reader.finish(); }

private:
    /// What the reader itself gives a meaning.
    static bool mayStandAnywhere(OdDbTag const& tag)
    {
        constexpr int kOwn[] = {5, 67, kMarker, 101, 102, 330, 999};
        return tag.code < 1000 && std::ranges::find(kOwn, tag.code) == std::end(kOwn);
    }
    /// True at the third coordinate of a point.
    bool followPoint(OdDbTag const& tag)
    {
        if (tag.kind == OdDbTagKind::kReal && m_coordinate > 0 && tag.code == m_pointCode + 10 * m_coordinate)
            return ++m_coordinate == 3;
        bool const isPoint = OdDxfCode::_getType(tag.code) == OdDxfCode::kPoint;
        m_pointCode = isPoint ? tag.code : -1;
        m_coordinate = isPoint ? 1 : 0;
        return false;
    }

    OdDbRecordReader m_reader;
    int m_pointCode = -1;
    int m_coordinate = 0;
    bool m_isPointTaken = false; ///< by a field or tail of the class
};

bool isRecordOfKeptClass(SdsRecord const& record)
{
    int sections = 0;
    for (OdDbTag const tag : record.tags)
        if (tag.code == kMarker)
            sections += tag.text != kEntityMarker ? 1 : 0;
    bool const isName =
        record.type.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") == std::string::npos;
    return isName && sections > 0 && odDbHasMarker(record.tags, kEntityMarker);
}

} // namespace

OdDbObjectId SdsNames::byName(OdDbTableKind table, std::string_view utf8Name)
{
    if (utf8Name.empty() && table != OdDbTableKind::kLayer)
        return {};
    OdString const name = OdString::fromUtf8(utf8Name);
    OdDbObjectId const found = m_database->table(table).getAt(name);
    if (table == OdDbTableKind::kLayer) {
        m_newLayer = found.isNull() ? name : OdString();
        if (found.isNull() && OdDbSymbolTable::isValidName(name))
            return m_database->getLayerZeroId();
    }
    m_areKnown &= !found.isNull();
    return found;
}

void SdsNames::noteApplications(OdDbTagList const& tags)
{
    for (OdDbTag const tag : tags)
        if (tag.code == kApplication) {
            OdString const name = OdString::fromUtf8(tag.text);
            m_applications.insert(name);
            m_areKnown &=
                OdDbSymbolTable::isValidName(name) || m_database->table(OdDbTableKind::kRegApp).has(name);
        }
}

void SdsNames::complete(OdDbEntity& entity) const
{
    for (OdString const& name : m_applications)
        OdDbRegAppTableRecord::registerIn(*m_database, name);
    if (m_newLayer.isEmpty())
        return;
    auto const layers = m_database->getLayerTableId().open<OdDbSymbolTable>(OdDb::kForWrite);
    OdDbObjectId layer = layers->getAt(m_newLayer);
    if (layer.isNull()) {
        OdDbLayerTableRecordPtr const record(new OdDbLayerTableRecord);
        record->setName(m_newLayer);
        layer = layers->add(record);
    }
    entity.setLayer(layer);
}

OdDbTagList withFlatPoints(OdDbTagList const& tags, std::string_view type)
{
    OdDbTagList result;
    std::map<int, int> points; // how many there were of a code
    int third = -1;            // the code of the third coordinate that is to be left out
    for (OdDbTag const tag : tags) {
        if (tag.code == third) {
            third = -1;
            continue;
        }
        result.put(tag);
        auto const flat = std::ranges::find_if(
            kFlatPoints, [&](FlatPoint const& each) { return each.type == type && each.code == tag.code; });
        if (flat != std::end(kFlatPoints) && ++points[tag.code] > flat->first)
            third = tag.code + 20;
    }
    return result;
}

OdDbEntityPtr newEntityOf(SdsRecord const& record, OdDbEntity const* whole)
{
    OdRxClass const* const known = odDbClassRegistry::choose(record.type, record.tags, whole);
    if (known)
        return known->isDerivedFrom(OdDbEntity::desc()) ? OdDbEntityPtr(OdRxObjectPtr(known->create())) : nullptr;
    if (odDbClassRegistry::hasVariants(record.type) || !isRecordOfKeptClass(record))
        return nullptr;
    return new OdDbRawEntity(record.type);
}

bool readTags(OdDbTagList const& tags, OdDbEntity& entity, SdsNames& names)
{
    TagFeeder feeder(entity, names);
    for (OdDbTag const tag : tags)
        feeder.put(tag);
    return feeder.finish() && names.areKnown();
}

bool hasRequiredGroups(OdDbEntity const& entity)
{
    constexpr int kLayer = 8;
    int number = 0;
    for (OdDbSection const& section : entity.fieldTable().sections())
        for (OdDbField const& field : section.fields) {
            bool const isCount = field.kind == OdDbFieldKind::kInt8 || field.kind == OdDbFieldKind::kInt16 ||
                                 field.kind == OdDbFieldKind::kInt32 || field.kind == OdDbFieldKind::kBool;
            bool const isRequired = field.rule == OdDbWriteRule::kAlways && field.code != kLayer && !isCount &&
                                    std::ranges::none_of(kOptionalGroups, [&](OptionalGroup const& group) {
                                        return group.type == entity.dxfName() && group.code == field.code;
                                    });
            if (isRequired && !entity.isPresent(number))
                return false;
            ++number;
        }
    return true;
}

namespace {

/// Null for what is no reference.
OdDbObjectId shownBlock(OdDbEntity const& entity)
{
    auto const* const reference = odCast<OdDbBlockReference>(&entity);
    return reference ? reference->blockTableRecord() : OdDbObjectId();
}

} // namespace

bool showsSpace(OdDbEntity const& entity)
{
    OdDbObjectId const shown = shownBlock(entity);
    return shown.isValid() && shown.open<OdDbBlockTableRecord>()->isLayout();
}

bool isLoop(OdDbEntity const& entity, OdDbObjectId block)
{
    OdDbObjectId const shown = shownBlock(entity);
    return shown.isValid() && (shown == block || shown.open<OdDbBlockTableRecord>()->contains(block));
}

} // namespace ca
