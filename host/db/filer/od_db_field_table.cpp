#include "host/db/filer/od_db_field_table.h"

#include "host/db/filer/od_db_embedded.h"
#include "host/db/od_db_database.h"
#include "host/db/records/od_db_symbol_table.h"

#include <cstring>
#include <limits>

namespace {

constexpr int kMarker = 100;

/// A point takes the codes of its other coordinates too.
int coordinatesOf(OdDbFieldKind kind)
{
    return kind == OdDbFieldKind::kPoint3 ? 3 : kind == OdDbFieldKind::kPoint2 ? 2 : 1;
}

template <class T>
T& as(void* place)
{
    return *static_cast<T*>(place);
}

template <class T>
T clampedTo(std::int64_t value)
{
    return static_cast<T>(
        std::clamp<std::int64_t>(value, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}

void store(OdDbField const& field, void* place, OdDbTag const& tag, OdDbReferenceResolver& resolver)
{
    switch (field.kind) {
    case OdDbFieldKind::kReal: as<double>(place) = tag.real; break;
    case OdDbFieldKind::kAngle: as<OdDbAngle>(place) = OdDbAngle::ofDegrees(tag.real); break;
    case OdDbFieldKind::kInt8: as<std::int8_t>(place) = clampedTo<std::int8_t>(tag.integer); break;
    case OdDbFieldKind::kInt16: as<std::int16_t>(place) = clampedTo<std::int16_t>(tag.integer); break;
    case OdDbFieldKind::kInt32: as<std::int32_t>(place) = clampedTo<std::int32_t>(tag.integer); break;
    case OdDbFieldKind::kBool: as<bool>(place) = tag.integer != 0; break;
    case OdDbFieldKind::kPoint2:
    case OdDbFieldKind::kPoint3: static_cast<double*>(place)[(tag.code - field.code) / 10] = tag.real; break;
    case OdDbFieldKind::kString: as<OdString>(place) = OdString::fromUtf8(tag.text); break;
    case OdDbFieldKind::kReference: as<OdDbObjectId>(place) = resolver.byHandle(tag.handle()); break;
    case OdDbFieldKind::kName: as<OdDbObjectId>(place) = resolver.byName(field.table, tag.text); break;
    }
}

/// The kinds of value that a field can be read from; damaged files hold others.
bool takes(OdDbField const& field, OdDbTag const& tag)
{
    switch (field.kind) {
    case OdDbFieldKind::kReal:
    case OdDbFieldKind::kAngle:
    case OdDbFieldKind::kPoint2:
    case OdDbFieldKind::kPoint3: return tag.kind == OdDbTagKind::kReal;
    case OdDbFieldKind::kInt8:
    case OdDbFieldKind::kInt16:
    case OdDbFieldKind::kInt32:
    case OdDbFieldKind::kBool: return tag.kind == OdDbTagKind::kInteger;
    case OdDbFieldKind::kString:
    case OdDbFieldKind::kName: return tag.kind == OdDbTagKind::kText;
    case OdDbFieldKind::kReference: return tag.kind == OdDbTagKind::kHandle;
    }
    return false;
}

OdString const& recordName(OdDbObjectId id)
{
    static OdString const s_none;
    auto const* record = id.isValid() ? odCast<OdDbSymbolTableRecord>(id.stub()->object) : nullptr;
    return record ? record->getName() : s_none;
}

void put(OdDbField const& field, void* place, OdDbTagSink& sink)
{
    switch (field.kind) {
    case OdDbFieldKind::kReal: sink.real(field.code, as<double>(place)); break;
    case OdDbFieldKind::kAngle: sink.real(field.code, as<OdDbAngle>(place).degrees()); break;
    case OdDbFieldKind::kInt8: sink.integer(field.code, as<std::int8_t>(place)); break;
    case OdDbFieldKind::kInt16: sink.integer(field.code, as<std::int16_t>(place)); break;
    case OdDbFieldKind::kInt32: sink.integer(field.code, as<std::int32_t>(place)); break;
    case OdDbFieldKind::kBool: sink.integer(field.code, as<bool>(place) ? 1 : 0); break;
    case OdDbFieldKind::kPoint2: sink.point(field.code, static_cast<double*>(place), 2); break;
    case OdDbFieldKind::kPoint3: sink.point(field.code, static_cast<double*>(place), 3); break;
    case OdDbFieldKind::kString: sink.text(field.code, as<OdString>(place)); break;
    case OdDbFieldKind::kReference: sink.handle(field.code, as<OdDbObjectId>(place).getHandle()); break;
    case OdDbFieldKind::kName: sink.text(field.code, recordName(as<OdDbObjectId>(place))); break;
    }
}

template <class T>
bool sameBits(void* a, void* b, int count = 1)
{
    return std::memcmp(a, b, sizeof(T) * static_cast<std::size_t>(count)) == 0;
}

/// Equality bit for bit: a value that differs from the default at all is written.
bool equal(OdDbField const& field, void* a, void* b)
{
    switch (field.kind) {
    case OdDbFieldKind::kReal: return sameBits<double>(a, b);
    case OdDbFieldKind::kAngle: return as<OdDbAngle>(a) == as<OdDbAngle>(b);
    case OdDbFieldKind::kInt8: return sameBits<std::int8_t>(a, b);
    case OdDbFieldKind::kInt16: return sameBits<std::int16_t>(a, b);
    case OdDbFieldKind::kInt32: return sameBits<std::int32_t>(a, b);
    case OdDbFieldKind::kBool: return as<bool>(a) == as<bool>(b);
    case OdDbFieldKind::kPoint2: return sameBits<double>(a, b, 2);
    case OdDbFieldKind::kPoint3: return sameBits<double>(a, b, 3);
    case OdDbFieldKind::kString: return as<OdString>(a) == as<OdString>(b);
    case OdDbFieldKind::kReference:
    case OdDbFieldKind::kName: return as<OdDbObjectId>(a) == as<OdDbObjectId>(b);
    }
    return false;
}

} // namespace

OdDbObjectId odDbNameMeant(OdDbField const& field, OdDbObjectId named, OdDbDatabase const& database)
{
    bool const isLeftOut = named.isNull() && field.rule == OdDbWriteRule::kNotDefault;
    return isLeftOut ? database.getUsual(field.table) : named;
}

OdDbFieldTable::OdDbFieldTable(std::vector<OdDbSection> sections) : m_sections(std::move(sections))
{
    for (OdDbSection const& section : m_sections) {
        m_firstField.push_back(static_cast<int>(m_fields.size()));
        m_fields.insert(m_fields.end(), section.fields.begin(), section.fields.end());
    }
    for (int i = 0; i < static_cast<int>(m_sections.size()); ++i)
        indexSection(i);
}

void OdDbFieldTable::indexSection(int number)
{
    auto const index = static_cast<std::size_t>(number);
    int group = groupOf(m_sections[index].marker);
    if (group < 0) {
        group = numGroups();
        m_groups.emplace_back();
        m_groups.back().marker = m_sections[index].marker;
        m_groups.back().otherMarkers = m_sections[index].otherMarkers;
        m_groups.back().fieldOfCode.fill(-1);
    }
    Group& target = m_groups[static_cast<std::size_t>(group)];
    target.sections.push_back(number);
    int fieldNumber = m_firstField[index];
    for (OdDbField const& field : m_sections[index].fields) {
        for (int k = 0; k < coordinatesOf(field.kind); ++k)
            target.fieldOfCode[static_cast<std::size_t>(field.code) + 10 * static_cast<std::size_t>(k)] =
                static_cast<std::int16_t>(fieldNumber);
        ++fieldNumber;
    }
}

int OdDbFieldTable::groupOf(std::string_view marker) const
{
    for (std::size_t i = 0; i < m_groups.size(); ++i)
        if (m_groups[i].marker == marker)
            return static_cast<int>(i);
    for (std::size_t i = 0; i < m_groups.size(); ++i)
        if (std::ranges::find(m_groups[i].otherMarkers, marker) != m_groups[i].otherMarkers.end())
            return static_cast<int>(i);
    return -1;
}

bool OdDbFieldTable::read(OdDbObject& object, int group, OdDbTag const& tag, OdDbReferenceResolver& resolver) const
{
    if (group >= 0)
        return readInGroup(object, m_groups[static_cast<std::size_t>(group)], tag, resolver);
    return std::any_of(m_groups.begin(), m_groups.end(), [&](Group const& each) {
        return each.marker != kOdDbEmbeddedMarker && readInGroup(object, each, tag, resolver);
    });
}

bool OdDbFieldTable::readInGroup(OdDbObject& object, Group const& group, OdDbTag const& tag,
                                 OdDbReferenceResolver& resolver) const
{
    int const number =
        tag.code >= 0 && tag.code <= kLastCode ? group.fieldOfCode[static_cast<std::size_t>(tag.code)] : -1;
    if (number >= 0) {
        OdDbField const& field = m_fields[static_cast<std::size_t>(number)];
        if (takes(field, tag)) {
            store(field, field.place(&object), tag, resolver);
            object.markPresent(number);
            return true;
        }
    }
    for (int const sectionNumber : group.sections) {
        OdDbSection const& section = m_sections[static_cast<std::size_t>(sectionNumber)];
        if (section.readTail && section.readTail(object, tag))
            return true;
        bool const mayRefer =
            tag.kind == OdDbTagKind::kHandle || (section.readsNames && tag.kind == OdDbTagKind::kText);
        if (section.readReference && mayRefer && section.readReference(object, tag, resolver))
            return true;
    }
    return false;
}

bool OdDbFieldTable::write(OdDbObject const& object, int group, OdDbTagSink& sink) const
{
    // Reading a place never changes the object; the accessors are shared with reading.
    auto& source = const_cast<OdDbObject&>(object);
    OdDbObject& defaults = prototype(object);
    bool isWritten = false;
    for (int const sectionNumber : m_groups[static_cast<std::size_t>(group)].sections) {
        auto const index = static_cast<std::size_t>(sectionNumber);
        OdDbSection const& section = m_sections[index];
        if (section.isWritten && !section.isWritten(object))
            continue;
        isWritten = true;
        if (!section.marker.empty() && !section.continues)
            sink.text(section.marker == kOdDbEmbeddedMarker ? kOdDbEmbeddedCode : kMarker, section.marker);
        int number = m_firstField[index];
        for (OdDbField const& field : section.fields) {
            void* const place = field.place(&source);
            if (field.rule == OdDbWriteRule::kAlways || object.isPresent(number) ||
                !equal(field, place, field.place(&defaults)))
                put(field, place, sink);
            ++number;
        }
        if (section.writeTail)
            section.writeTail(object, sink);
    }
    return isWritten;
}

bool OdDbFieldTable::wasRead(OdDbObject const& object, int group) const
{
    for (int const sectionNumber : m_groups[static_cast<std::size_t>(group)].sections) {
        auto const index = static_cast<std::size_t>(sectionNumber);
        int const first = m_firstField[index];
        int const end = first + static_cast<int>(m_sections[index].fields.size());
        for (int field = first; field < end; ++field)
            if (object.isPresent(field))
                return true;
    }
    return false;
}

OdDbObject& OdDbFieldTable::prototype(OdDbObject const& object) const
{
    if (m_prototype.isNull())
        m_prototype = OdSmartPtr<OdDbObject>(OdRxObjectPtr(object.isA()->create()));
    return *m_prototype;
}
