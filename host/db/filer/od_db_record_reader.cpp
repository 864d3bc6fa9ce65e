#include "host/db/filer/od_db_record_reader.h"

#include "host/db/filer/od_db_embedded.h"
#include "host/db/od_db_entity.h"

namespace {

constexpr int kComment = 999;
constexpr int kBraces = 102;
constexpr int kMarker = 100;
constexpr int kOwner = 330;
constexpr int kPaperSpace = 67;
constexpr int kFirstExtendedData = 1000;

} // namespace

OdDbRecordReader::OdDbRecordReader(OdDbObject& object, OdDbReferenceResolver& resolver)
    : m_object(object), m_table(object.fieldTable()), m_resolver(resolver)
{
}

void OdDbRecordReader::put(OdDbTag const& tag)
{
    if (m_isInExtendedData || tag.code >= kFirstExtendedData) {
        m_isInExtendedData = true;
        m_object.editExtras().extendedData.put(tag);
    } else if (m_braces != EBraces::kNone) {
        takeGroupTag(tag);
    } else if (tag.code == kMarker) {
        enterSection(tag.text);
    } else if (tag.code == kComment) {
        keep(tag);
    } else if (!takeEnvelope(tag)) {
        if (tag.is(kOdDbEmbeddedCode, kOdDbEmbeddedMarker))
            enterEmbedded();
        bool const isKnown = !isInForeignSection() && m_table.read(m_object, m_group, tag, m_resolver);
        if (!isKnown)
            keep(tag);
    }
}

bool OdDbRecordReader::putIntoAnySection(OdDbTag const& tag)
{
    if (m_isInExtendedData || m_braces != EBraces::kNone || isInForeignSection())
        return false;
    constexpr int kAnyGroup = -1;
    return m_table.read(m_object, m_group, tag, m_resolver) || m_table.read(m_object, kAnyGroup, tag, m_resolver);
}

bool OdDbRecordReader::finish()
{
    if (m_braces == EBraces::kNone)
        return true;
    takeGroupTag(OdDbTag::ofText(kBraces, "}"));
    return false;
}

bool OdDbRecordReader::takeEnvelope(OdDbTag const& tag)
{
    if (tag.code == kBraces && tag.text.starts_with('{')) {
        m_braces = m_hasMarker                       ? EBraces::kOther
                   : tag.text == "{ACAD_XDICTIONARY" ? EBraces::kExtensionDictionary
                   : tag.text == "{ACAD_REACTORS"    ? EBraces::kReactors
                                                     : EBraces::kOther;
        if (m_braces == EBraces::kOther)
            takeGroupTag(tag);
        return true;
    }
    if (tag.code == kPaperSpace && tag.kind == OdDbTagKind::kInteger && m_group <= 0 &&
        odCast<OdDbEntity>(&m_object)) {
        m_isInPaperSpace = tag.integer != 0;
        return true;
    }
    if (m_hasMarker || tag.kind != OdDbTagKind::kHandle)
        return false;
    if (tag.code == m_object.handleGroupCode() && m_handle.isNull())
        m_handle = tag.handle();
    else if (tag.code == kOwner && m_owner.isNull())
        m_owner = tag.handle();
    else
        return false;
    return true;
}

void OdDbRecordReader::takeGroupTag(OdDbTag const& tag)
{
    bool const isEnd = tag.is(kBraces, "}");
    OdDbObjectExtras& extras = m_object.editExtras();
    switch (m_braces) {
    case EBraces::kExtensionDictionary:
        if (!isEnd && tag.kind == OdDbTagKind::kHandle)
            extras.extensionDictionary = m_resolver.byHandle(tag.handle());
        break;
    case EBraces::kReactors:
        if (!isEnd && tag.kind == OdDbTagKind::kHandle)
            extras.reactors.push_back(m_resolver.byHandle(tag.handle()));
        break;
    default:
        if (m_hasMarker)
            keep(tag);
        else
            extras.applicationGroups.put(tag);
    }
    if (isEnd)
        m_braces = EBraces::kNone;
}

void OdDbRecordReader::enterSection(std::string_view marker)
{
    m_hasMarker = true;
    m_isInUnknownObject = false;
    int const group = marker == kOdDbEmbeddedMarker ? -1 : m_table.groupOf(marker);
    m_unknownMarkerText.clear();
    if (group >= 0) {
        m_group = group;
        return;
    }
    m_unknownMarkerText = marker;
    m_object.editExtras().sections.push_back({m_group, m_unknownMarkerText, {}});
}

/// The tags that follow mean something else than above; what no section takes is kept in place.
void OdDbRecordReader::enterEmbedded()
{
    if (!odCast<OdDbEntity>(&m_object))
        return;
    int const group = m_table.groupOf(kOdDbEmbeddedMarker);
    m_isInUnknownObject = group < 0;
    if (group < 0)
        return;
    m_hasMarker = true;
    m_group = group;
    m_unknownMarkerText.clear();
}

void OdDbRecordReader::keep(OdDbTag const& tag)
{
    auto& sections = m_object.editExtras().sections;
    if (sections.empty() || sections.back().group != m_group || sections.back().marker != m_unknownMarkerText)
        sections.push_back({m_group, m_unknownMarkerText, {}});
    sections.back().tags.put(tag);
}
