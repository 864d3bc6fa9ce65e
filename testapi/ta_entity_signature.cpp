#include "testapi/ta_entity_signature.h"

#include <bit>
#include <cmath>

namespace ta {

namespace {

std::uint64_t hashOf(std::string_view text)
{
    return std::hash<std::string_view>()(text);
}

std::uint64_t hashOf(OdString const& text)
{
    return std::hash<OdString>()(text);
}

/// By the name of a record, regardless of case; any other object counts as none, because its handle says nothing.
std::uint64_t hashOf(OdDbObjectId id)
{
    auto const* const record = id.isValid() ? odCast<OdDbSymbolTableRecord>(id.stub()->object) : nullptr;
    return record ? hashOf(record->getName().upper()) : 0;
}

/// Builds a signature from fields, and from the tags of what is no field.
class SignatureBuilder : public OdDbTagSink
{
public:
    void put(OdDbTag const& tag) override
    {
        switch (tag.kind) {
        case OdDbTagKind::kReal: addReal(tag.real); break;
        case OdDbTagKind::kInteger: addExact(static_cast<std::uint64_t>(tag.integer)); break;
        case OdDbTagKind::kText:
        case OdDbTagKind::kBinary: addExact(hashOf(tag.text)); break;
        case OdDbTagKind::kHandle: break;
        }
    }
    void addEntity(OdDbEntity const& entity)
    {
        addExact(kindOf(entity));
        for (OdDbSection const& section : entity.fieldTable().sections())
            addSection(entity, section);
        if (OdDbObjectExtras const* const extras = entity.extras())
            for (OdDbObjectExtras::Section const& section : extras->sections)
                section.tags.writeTo(*this);
        for (OdDbPartIterator parts = entity.partIterator(); !parts.done(); parts.step())
            addEntity(parts.peek());
    }
    EntitySignature const& signature() const { return m_signature; }

private:
    void addSection(OdDbEntity const& entity, OdDbSection const& section)
    {
        if (section.isWritten && !section.isWritten(entity))
            return;
        // Reading a place changes nothing. The fields are not taken from what a file would hold, because that
        // depends on what the file held that the entity came from.
        auto* const object = const_cast<OdDbEntity*>(&entity);
        for (OdDbField const& field : section.fields)
            addField(field, field.place(object), entity.database());
        if (section.writeTail)
            section.writeTail(entity, *this);
    }
    void addField(OdDbField const& field, void const* place, OdDbDatabase const* database)
    {
        switch (field.kind) {
        case OdDbFieldKind::kReal: addReals(place, 1); break;
        case OdDbFieldKind::kPoint2: addReals(place, 2); break;
        case OdDbFieldKind::kPoint3: addReals(place, 3); break;
        case OdDbFieldKind::kAngle: addReal(static_cast<OdDbAngle const*>(place)->radians()); break;
        case OdDbFieldKind::kInt8: addInteger<std::int8_t>(place); break;
        case OdDbFieldKind::kInt16: addInteger<std::int16_t>(place); break;
        case OdDbFieldKind::kInt32: addInteger<std::int32_t>(place); break;
        case OdDbFieldKind::kBool: addInteger<bool>(place); break;
        case OdDbFieldKind::kString: addExact(hashOf(*static_cast<OdString const*>(place))); break;
        case OdDbFieldKind::kReference: addExact(hashOf(*static_cast<OdDbObjectId const*>(place))); break;
        case OdDbFieldKind::kName: {
            auto const& named = *static_cast<OdDbObjectId const*>(place);
            addExact(hashOf(database ? odDbNameMeant(field, named, *database) : named));
            break;
        }
        }
    }
    template <class T>
    void addInteger(void const* place)
    {
        addExact(static_cast<std::uint64_t>(*static_cast<T const*>(place)));
    }
    void addReals(void const* place, int count)
    {
        for (int i = 0; i < count; ++i)
            addReal(static_cast<double const*>(place)[i]);
    }
    void addReal(double value)
    {
        // Multiples of the golden ratio spread evenly, so that swapped values give another sum.
        constexpr double ratio = 0.6180339887498949;
        double const turns = ratio * static_cast<double>(++m_numReals);
        if (std::isfinite(value))
            m_signature.measure += value * (0.5 + 0.5 * (turns - std::floor(turns)));
    }
    void addExact(std::uint64_t value) { m_signature.exact = mixedHash(m_signature.exact, value); }

    EntitySignature m_signature;
    std::uint64_t m_numReals = 0;
};

std::optional<BoxCorners> cornersOf(OdGeExtents3d const& box)
{
    if (!box.isValidExtents())
        return std::nullopt;
    OdGePoint3d const& least = box.minPoint();
    OdGePoint3d const& greatest = box.maxPoint();
    return BoxCorners{least.x, least.y, least.z, greatest.x, greatest.y, greatest.z};
}

} // namespace

std::uint64_t mixedHash(std::uint64_t hash, std::uint64_t value)
{
    hash = (hash ^ value) * 0x9E3779B97F4A7C15U;
    return hash ^ (hash >> 29);
}

EntitySignature signatureOf(OdDbEntity const& entity)
{
    SignatureBuilder builder;
    builder.addEntity(entity);
    return builder.signature();
}

std::uint64_t kindOf(OdDbEntity const& entity)
{
    return mixedHash(std::bit_cast<std::uintptr_t>(entity.isA()), hashOf(entity.dxfName()));
}

std::optional<BoxCorners> placeOf(OdDbEntity const& entity)
{
    // The extents of a reference need a walk through its block, and say little about the reference itself.
    if (!odCast<OdDbBlockReference>(&entity))
        if (auto const corners = cornersOf(entity.extents()))
            return corners;
    std::vector<OdGePoint3d> points;
    entity.getStretchPoints(points);
    OdGeExtents3d box;
    for (OdGePoint3d const& point : points)
        box.addPoint(point);
    return cornersOf(box);
}

std::uint64_t LayerHashes::of(OdDbEntity const& entity)
{
    auto const [entry, isNew] = m_hashes.try_emplace(entity.layerId().stub(), 0);
    if (isNew)
        entry->second = hashOf(entity.layerId());
    return entry->second;
}

} // namespace ta
