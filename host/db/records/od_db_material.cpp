#include "host/db/records/od_db_material.h"

#include "host/db/od_db_database.h"
#include "host/db/records/od_db_dictionary.h"

// Files use one group code for several values of a material: only the place tells what it means, and values that
// equal their defaults are left out. The table below lists the values in the order of files; a tag belongs to the
// next row of its code at or behind the row of the tag before it. Its tags stay in their order, so that nothing
// moves when a drawing is saved again.

OD_DB_DEFINE_CLASS(OdDbMaterial, OdDbObject, "MATERIAL")

struct OdDbMaterialRow
{
    using EProperty = OdDbMaterial::EProperty;
    using enum OdDbMaterial::EProperty;

    int code;
    EProperty property = kNone;
    /// What has to stand in front where the code alone would be taken for another row.
    EProperty guard = kNone;

    static OdDbMaterialRow const s_rows[];
};

// clang-format off
OdDbMaterialRow const OdDbMaterialRow::s_rows[] = {
    {1,   kName},           {2,   kDescription},
    {70,  kAmbientMethod},  {40,  kAmbientFactor},         {90, kAmbientValue},
    {71,  kDiffuseMethod},  {41,  kDiffuseFactor},         {91, kDiffuseValue},
    {42}, {72}, {3}, {73}, {74}, {75}, {43},               // diffuse map
    {44,  kGloss},
    {73,  kSpecularMethod, kGloss}, {76, kSpecularMethod}, // programs differ in the code
    {45,  kSpecularFactor}, {92,  kSpecularValue},
    {46}, {77}, {4}, {78}, {79}, {170}, {47},              // specular map
    {48}, {171}, {6}, {172}, {173}, {174}, {49},           // reflection map
    {140, kOpacity},
    {141}, {175}, {7}, {176}, {177}, {178}, {142},         // opacity map
    {143}, {179}, {8}, {270}, {271}, {272}, {144},         // bump map
    {145, kRefractionIndex},
    {146}, {273}, {9}, {274}, {275}, {276}, {147},         // refraction map
    {271}, {465}, {42}, {72}, {3}, {73}, {74}, {75}, {43}, // normal map
    {148, kTranslucence},
    {90},                                                  // self-illumination
    {468, kReflectivity},
    {93},                                                  // illumination model
    {94,  kChannelFlags},
};
// clang-format on

namespace {

using Row = OdDbMaterialRow;
using EProperty = OdDbMaterialRow::EProperty;

std::size_t constexpr kNoRow = static_cast<std::size_t>(-1);

std::size_t findRow(int code, std::size_t from)
{
    for (std::size_t row = from; row < std::size(Row::s_rows); ++row)
        if (Row::s_rows[row].code == code)
            return row;
    return kNoRow;
}

std::size_t rowOf(EProperty property)
{
    std::size_t row = 0;
    while (Row::s_rows[row].property != property)
        ++row;
    return row;
}

/// What a material has that says nothing of the property; it tells the kind of the tag as well.
OdDbTag defaultOf(EProperty property)
{
    int const code = Row::s_rows[rowOf(property)].code;
    switch (property) {
    case Row::kName:
    case Row::kDescription: return OdDbTag::ofText(code, {});
    case Row::kAmbientFactor:
    case Row::kDiffuseFactor:
    case Row::kSpecularFactor:
    case Row::kOpacity:
    case Row::kRefractionIndex: return OdDbTag::ofReal(code, 1.0);
    case Row::kGloss: return OdDbTag::ofReal(code, 0.5);
    case Row::kTranslucence:
    case Row::kReflectivity: return OdDbTag::ofReal(code, 0.0);
    case Row::kAmbientValue:
    case Row::kDiffuseValue:
    case Row::kSpecularValue: return OdDbTag::ofInteger(code, OdDbMaterialColor().value);
    case Row::kChannelFlags: return OdDbTag::ofInteger(code, 63);
    default: return OdDbTag::ofInteger(code, 0);
    }
}

EProperty following(EProperty property, int steps)
{
    return static_cast<EProperty>(static_cast<int>(property) + steps);
}

/// NaN is no fraction.
void checkFraction(double value)
{
    if (!(value >= 0 && value <= 1))
        throw OdError(eOutOfRange, L"A factor of a material must be between 0 and 1");
}

} // namespace

OdDbFieldTable const& OdDbMaterial::fields()
{
    static OdDbFieldTable const s_table({{"AcDbMaterial", {}, &readTag, &writeTags}});
    return s_table;
}

bool OdDbMaterial::readTag(OdDbObject& object, OdDbTag const& tag)
{
    static_cast<OdDbMaterial&>(object).take(tag);
    return true;
}

void OdDbMaterial::writeTags(OdDbObject const& object, OdDbTagSink& sink)
{
    for (Part const& part : static_cast<OdDbMaterial const&>(object).m_parts)
        part.tags.writeTo(sink);
}

void OdDbMaterial::take(OdDbTag const& tag)
{
    std::size_t const found = findRow(tag.code, m_row);
    EProperty property = EProperty::kNone;
    if (found != kNoRow) {
        m_row = found;
        property = Row::s_rows[found].property;
        if (property != EProperty::kNone && (defaultOf(property).kind != tag.kind || find(property)))
            property = EProperty::kNone;
    }
    bool const goesOn = property == EProperty::kNone && !m_parts.empty() && m_parts.back().row == m_row &&
                        m_parts.back().property == EProperty::kNone;
    if (!goesOn)
        m_parts.push_back({m_row, property, {}});
    m_parts.back().tags.put(tag);
}

OdDbMaterial::Part const* OdDbMaterial::find(EProperty property) const
{
    auto const found = std::ranges::find(m_parts, property, &Part::property);
    return found == m_parts.end() ? nullptr : &*found;
}

std::optional<OdDbTag> OdDbMaterial::tagOf(EProperty property) const
{
    Part const* const part = find(property);
    return part ? std::optional(*part->tags.begin()) : std::nullopt;
}

OdString OdDbMaterial::text(EProperty property) const
{
    return OdString::fromUtf8(tagOf(property).value_or(defaultOf(property)).text);
}

double OdDbMaterial::real(EProperty property) const
{
    return tagOf(property).value_or(defaultOf(property)).real;
}

std::int64_t OdDbMaterial::integer(EProperty property) const
{
    return tagOf(property).value_or(defaultOf(property)).integer;
}

OdDbMaterialColor OdDbMaterial::color(EProperty method) const
{
    return {integer(method) != 0, real(following(method, 1)),
            static_cast<std::int32_t>(integer(following(method, 2)))};
}

/// Puts the value in the place of the present one, under the code that the file has for it, else where it belongs.
void OdDbMaterial::put(EProperty property, OdDbTag tag)
{
    assertWriteEnabled();
    auto const present = std::ranges::find(m_parts, property, &Part::property);
    if (present != m_parts.end()) {
        tag.code = (*present->tags.begin()).code;
        present->tags.clear();
        present->tags.put(tag);
        return;
    }
    std::size_t const row = rowOf(property);
    if (EProperty const guard = Row::s_rows[row].guard; guard != EProperty::kNone && !find(guard))
        put(guard, defaultOf(guard));
    tag.code = static_cast<std::int16_t>(Row::s_rows[row].code);
    auto const place = std::ranges::find_if(m_parts, [row](Part const& part) { return part.row > row; });
    m_parts.insert(place, {row, property, {}})->tags.put(tag);
}

void OdDbMaterial::setName(OdString const& name)
{
    if (name.isEmpty())
        throw OdError(eInvalidName);
    put(EProperty::kName, OdDbTag::ofText(0, name.toUtf8()));
}

void OdDbMaterial::setDescription(OdString const& description)
{
    put(EProperty::kDescription, OdDbTag::ofText(0, description.toUtf8()));
}

void OdDbMaterial::setFraction(EProperty property, double value)
{
    checkFraction(value);
    put(property, OdDbTag::ofReal(0, value));
}

void OdDbMaterial::setColor(EProperty method, OdDbMaterialColor const& color)
{
    checkFraction(color.factor);
    put(method, OdDbTag::ofInteger(0, color.isOverride ? 1 : 0));
    put(following(method, 1), OdDbTag::ofReal(0, color.factor));
    put(following(method, 2), OdDbTag::ofInteger(0, color.value));
}

void OdDbMaterial::setRefractionIndex(double index)
{
    if (!(index > 0))
        throw OdError(eOutOfRange, L"A refraction index must be positive");
    put(EProperty::kRefractionIndex, OdDbTag::ofReal(0, index));
}

void OdDbMaterial::setChannelFlags(std::int32_t flags)
{
    put(EProperty::kChannelFlags, OdDbTag::ofInteger(0, flags));
}

OdDbObjectId odDbMaterialDictionary(OdDbDatabase& database, bool create)
{
    static OdString const s_name = L"ACAD_MATERIAL";
    OdDbObjectId const root = database.getNamedObjectsDictionaryId();
    OdDbObjectId const present = root.open<OdDbDictionary>()->getAt(s_name);
    if (!present.isNull() || !create)
        return present;
    return root.open<OdDbDictionary>(OdDb::kForWrite)->setAt(s_name, new OdDbDictionary);
}

OdDbObjectId odDbAddMaterial(OdDbDatabase& database, OdDbMaterial* material)
{
    OdDbMaterialPtr const added(material);
    if (added.isNull())
        throw OdError(eInvalidInput, L"No material is given");
    OdString const name = added->name();
    if (name.isEmpty())
        throw OdError(eInvalidName);
    if (added->isDBRO())
        throw OdError(eAlreadyInDb);
    OdDbObjectId const present = odDbMaterialDictionary(database);
    if (!present.isNull() && present.open<OdDbDictionary>()->has(name))
        throw OdError(eDuplicateKey);
    return odDbMaterialDictionary(database, true).open<OdDbDictionary>(OdDb::kForWrite)->setAt(name, material);
}
