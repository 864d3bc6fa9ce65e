// The multiline text of an attribute. In files it is embedded behind the attribute, without a marker of its own.
// It is kept as it stands there, with two exceptions: the style is a reference, which follows when the style is
// renamed, and stands right behind the contents.
#include "host/db/entities/od_db_attribute_base.h"
#include "host/db/entities/od_db_plain_lines.h"
#include "host/db/entities/od_db_transform.h"
#include "host/db/filer/od_db_embedded.h"
#include "host/db/filer/od_db_record_reader.h"

namespace {

constexpr std::string_view kMTextMarker = "AcDbMText";
constexpr int kMarker = 100;
constexpr int kContents = 1;
constexpr int kStyle = 7;
constexpr std::int16_t kSingleLine = 1;

/// The embedded tags refer to nothing but the style, which is held apart.
class NoReferences : public OdDbReferenceResolver
{
public:
    OdDbObjectId byName(OdDbTableKind, std::string_view) override { return {}; }
    OdDbObjectId byHandle(OdDbHandle) override { return {}; }
};

/// Passes on what an attribute holds of the section of a multiline text.
class EmbeddedFields : public OdDbTagSink
{
public:
    explicit EmbeddedFields(OdDbTagList& target) : m_target(target) {}
    void put(OdDbTag const& tag) override
    {
        if (tag.code != kMarker && tag.code != kStyle)
            m_target.put(tag);
    }

private:
    OdDbTagList& m_target;
};

OdDbTagList embeddedFieldsOf(OdDbMText const& text)
{
    OdDbTagList result;
    EmbeddedFields sink(result);
    OdDbFieldTable const& table = text.fieldTable();
    int const group = table.groupOf(kMTextMarker);
    table.write(text, group, sink);
    if (OdDbObjectExtras const* const extras = text.extras())
        for (OdDbObjectExtras::Section const& section : extras->sections)
            if (section.group == group && section.marker.empty())
                section.tags.writeTo(sink);
    return result;
}

} // namespace

bool OdDbAttributeBase::hasMText(OdDbObject const& object)
{
    return static_cast<OdDbAttributeBase const&>(object).isMTextAttribute();
}

bool OdDbAttributeBase::readMText(OdDbObject& object, OdDbTag const& tag)
{
    OdDbTagList& tags = static_cast<OdDbAttributeBase&>(object).m_mtext.makeIfNull();
    if (!tag.is(kOdDbEmbeddedCode, kOdDbEmbeddedMarker))
        tags.put(tag);
    return true;
}

void OdDbAttributeBase::writeMTextToContents(OdDbObject const& object, OdDbTagSink& sink)
{
    for (OdDbTag const tag : *static_cast<OdDbAttributeBase const&>(object).m_mtext.get()) {
        sink.put(tag);
        if (tag.code == kContents)
            return;
    }
}

void OdDbAttributeBase::writeMTextBehindStyle(OdDbObject const& object, OdDbTagSink& sink)
{
    bool isBehind = false;
    for (OdDbTag const tag : *static_cast<OdDbAttributeBase const&>(object).m_mtext.get()) {
        if (isBehind)
            sink.put(tag);
        isBehind = isBehind || tag.code == kContents;
    }
}

std::vector<OdDbSection> OdDbAttributeBase::attributeSections(std::string_view marker,
                                                              std::span<OdDbField const> fields)
{
    // clang-format off
    static constexpr OdDbField s_lines[] = {
        odField<&OdDbAttributeBase::m_lineKind>      (71),
        odField<&OdDbAttributeBase::m_isReallyLocked>(72),
        odField<&OdDbAttributeBase::m_linePoint>     (11),
    };
    static constexpr OdDbField s_style[] = {
        odNameField<&OdDbAttributeBase::m_mtextStyle>(kStyle, OdDbTableKind::kTextStyle),
    };
    // clang-format on
    return {
        entitySection(),
        textSection(),
        {.marker = marker, .fields = {}, .readTail = &readVersionOrLock, .writeTail = &writeVersion},
        {.marker = marker, .fields = fields, .writeTail = &writeLock, .continues = true},
        {.marker = marker, .fields = s_lines, .continues = true},
        {.marker = kOdDbEmbeddedMarker,
         .fields = {},
         .readTail = &readMText,
         .writeTail = &writeMTextToContents,
         .isWritten = &hasMText},
        {.marker = kOdDbEmbeddedMarker,
         .fields = s_style,
         .writeTail = &writeMTextBehindStyle,
         .continues = true,
         .isWritten = &hasMText},
    };
}

OdDbMTextPtr OdDbAttributeBase::getMTextAttribute() const
{
    if (!m_mtext)
        return {};
    OdDbMTextPtr const text(new OdDbMText);
    NoReferences resolver;
    OdDbRecordReader reader(*text, resolver);
    reader.put(OdDbTag::ofText(kMarker, kMTextMarker));
    for (OdDbTag const tag : *m_mtext.get())
        reader.put(tag);
    reader.finish();
    text->setPropertiesFrom(*this);
    text->setTextStyle(m_mtextStyle);
    return text;
}

void OdDbAttributeBase::setMTextAttribute(OdDbMText const* text)
{
    if (text && isDBRO() && !text->textStyle().isNull() && text->textStyle().database() != database())
        throw OdError(eWrongDatabase);
    assertWriteEnabled();
    if (!text) {
        m_mtext.reset();
        m_mtextStyle = OdDbObjectId();
        if (m_lineKind != 0)
            m_lineKind = kSingleLine;
        return;
    }
    m_mtext.makeIfNull() = embeddedFieldsOf(*text);
    m_mtextStyle = text->textStyle();
    m_lineKind = multilineKind();
    m_linePoint = odDbToPlane(text->location(), text->normal());
}

void OdDbAttributeBase::takeTextOfMText()
{
    OdDbMTextPtr const text = getMTextAttribute();
    if (!text)
        return;
    OdString joined;
    for (OdString const& line : odDbPlainLines(text->contents()))
        joined += (joined.isEmpty() ? L"" : L" ") + line;
    setTextString(joined);
    if (!text->textStyle().isNull())
        setTextStyle(text->textStyle());
    setNormal(text->normal());
    setHeight(text->textHeight());
    setRotation(text->rotation());
    setHorizontalMode(text->horizontalMode());
    setVerticalMode(text->verticalMode());
    setAlignmentPoint(text->location());
}

OdResult OdDbAttributeBase::transformBy(OdGeMatrix3d const& transformation)
{
    OdDbMTextPtr const text = getMTextAttribute();
    bool const hasLinePoint = m_linePoint.asVector().lengthSqrd() != 0;
    OdGePoint3d const linePoint = transformation * odDbToWorld(m_linePoint, normal());
    OdResult result = text ? text->transformBy(transformation) : eOk;
    if (result == eOk)
        result = OdDbText::transformBy(transformation);
    if (result != eOk)
        return result;
    if (text)
        setMTextAttribute(text);
    else if (hasLinePoint)
        m_linePoint = odDbToPlane(linePoint, normal());
    return eOk;
}

void OdDbAttributeBase::outline(OdDbOutlineSink& sink) const
{
    if (OdDbMTextPtr const text = getMTextAttribute())
        text->outline(sink);
    else
        OdDbText::outline(sink);
}
