#include "host/db/records/od_db_layer_table_record.h"

#include "host/db/od_db_database.h"
#include "host/db/records/od_db_reg_app_table_record.h"

OD_DB_DEFINE_CLASS(OdDbLayerTableRecord, OdDbSymbolTableRecord, "LAYER")

namespace {

constexpr char kDescriptionApplication[] = "AcAecLayerStandard";

} // namespace

OdDbFieldTable const& OdDbLayerTableRecord::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbLayerTableRecord::m_name>        (2, OdDbWriteRule::kAlways),
        odField<&OdDbLayerTableRecord::m_flags>       (70, OdDbWriteRule::kAlways),
        odField<&OdDbLayerTableRecord::m_signedColor> (62, OdDbWriteRule::kAlways),
        odField<&OdDbLayerTableRecord::m_trueColor>   (420),
        odNameField<&OdDbLayerTableRecord::m_linetype>(6, OdDbTableKind::kLinetype, OdDbWriteRule::kAlways),
        odField<&OdDbLayerTableRecord::m_plottable>   (290),
        odField<&OdDbLayerTableRecord::m_lineWeight>  (370, OdDbWriteRule::kAlways),
        odField<&OdDbLayerTableRecord::m_plotStyle>   (390),
        odField<&OdDbLayerTableRecord::m_material>    (347),
    };
    // clang-format on
    static OdDbFieldTable const s_table({recordSection(), {"AcDbLayerTableRecord", s_fields}});
    return s_table;
}

void OdDbLayerTableRecord::addedToDatabase()
{
    if (m_linetype.isNull() && database()->getLinetypeTableId().isValid())
        m_linetype = database()->table(OdDbTableKind::kLinetype).getAt(L"Continuous");
}

void OdDbLayerTableRecord::setIsOff(bool off)
{
    assertWriteEnabled();
    if (isOff() != off)
        m_signedColor = static_cast<std::int16_t>(-m_signedColor);
}

void OdDbLayerTableRecord::setIsPlottable(bool plottable)
{
    assertWriteEnabled();
    m_plottable = plottable;
}

OdCmColor OdDbLayerTableRecord::color() const
{
    auto const index = static_cast<std::int16_t>(std::abs(m_signedColor));
    if (m_trueColor < 0)
        return OdCmColor(index);
    auto const part = [this](int shift) { return static_cast<std::uint8_t>(m_trueColor >> shift & 0xFF); };
    return OdCmColor::trueColor(part(16), part(8), part(0), index);
}

void OdDbLayerTableRecord::setColor(OdCmColor const& color)
{
    std::int16_t const index = color.colorIndex();
    if (index < 1 || index > 255)
        throw OdError(eOutOfRange, odFormat(L"A layer cannot have the color %d", static_cast<int>(index)));
    assertWriteEnabled();
    m_signedColor = static_cast<std::int16_t>(isOff() ? -index : index);
    m_trueColor = color.isTrueColor() ? color.rgb() : -1;
}

void OdDbLayerTableRecord::setLinetypeObjectId(OdDbObjectId linetype)
{
    if (linetype.isNull())
        throw OdError(eNullObjectId);
    if (isDBRO() && linetype.database() != database())
        throw OdError(eWrongDatabase);
    assertWriteEnabled();
    m_linetype = linetype;
}

void OdDbLayerTableRecord::setLineWeight(int weight)
{
    if (weight != -3 && (weight < 0 || weight > 211))
        throw OdError(eOutOfRange, odFormat(L"A layer cannot have the lineweight %d", weight));
    assertWriteEnabled();
    m_lineWeight = static_cast<std::int16_t>(weight);
}

void OdDbLayerTableRecord::setPlotStyleName(OdDbObjectId plotStyle)
{
    assertWriteEnabled();
    m_plotStyle = plotStyle;
}

void OdDbLayerTableRecord::setMaterialId(OdDbObjectId material)
{
    assertWriteEnabled();
    m_material = material;
}

OdString OdDbLayerTableRecord::description() const
{
    // Two texts: a reserved one, then the description.
    int texts = 0;
    for (OdDbTag const tag : extendedData(OdString::fromUtf8(kDescriptionApplication)))
        if (tag.code == 1000 && ++texts == 2)
            return OdString::fromUtf8(tag.text);
    return {};
}

void OdDbLayerTableRecord::setDescription(OdString const& text)
{
    assertWriteEnabled();
    OdDbTagList tags;
    tags.text(1001, std::string_view(kDescriptionApplication));
    if (!text.isEmpty()) {
        tags.text(1000, std::string_view());
        tags.text(1000, text);
        if (database())
            OdDbRegAppTableRecord::registerIn(*database(), OdString::fromUtf8(kDescriptionApplication));
    }
    setExtendedData(tags);
}
