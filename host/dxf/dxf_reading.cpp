#include "host/dxf/dxf_reading.h"

#include "host/db/filer/od_db_record_reader.h"

namespace dxf {

namespace {

constexpr int kFrozenLayer = 331; // in a viewport

} // namespace

Reading::Reading(OdDbDatabase& database, TagSource& source, ERelease release, ReadReport& report)
    : m_database(database), m_source(source), m_release(release), m_report(report), m_names(database, source)
{
    m_source.setDamageListener([this](Damage const& damage) { damaged(damage); });
}

Reading::~Reading()
{
    m_source.setDamageListener({});
}

void Reading::advance()
{
    if (m_peekAt && *m_peekAt != m_peeked.end()) {
        m_tag = **m_peekAt;
        ++*m_peekAt;
        return;
    }
    if (m_peekAt) {
        m_peekAt.reset();
        m_tag = m_behindPeeked;
        return;
    }
    if (m_source.next(m_tag))
        return;
    m_tag = OdDbTag::ofText(0, "EOF");
    m_isRecordBroken = true;
    if (!std::exchange(m_isCutOff, true))
        note(L"The file ends without its end mark EOF; it is cut off");
}

void Reading::skipRecord()
{
    do
        advance();
    while (!isAtRecord());
}

void Reading::skipToRecord()
{
    if (isAtRecord())
        return;
    note(L"A record (group 0) is expected here; what stands up to the next one is left out");
    skipRecord();
}

/// What a source says of damage, with the record that it struck.
void Reading::damaged(Damage const& damage)
{
    m_isRecordBroken |= damage.breaksRecord;
    if (damage.reason.isEmpty()) {
        ++m_report.moreNotes;
        return;
    }
    OdString const in = m_recordName.empty() ? OdString() : OdString::fromUtf8(m_recordName) + L": ";
    note(damage.place, {}, in + damage.reason);
}

void Reading::takeComments(OdDbTagList& comments)
{
    for (; m_tag.code == 999; advance())
        comments.put(m_tag);
}

void Reading::keep(OdDbTagList& tags)
{
    tags.put(m_tag);
    noteHandle();
}

void Reading::noteHandle()
{
    // Absurd handles of damaged files would hide the highest sensible one.
    constexpr OdDbHandle kAbsurd(std::uint64_t{1} << 62);
    if (m_tag.kind == OdDbTagKind::kHandle && m_tag.handle() < kAbsurd)
        m_highestHandle = std::max(m_highestHandle, m_tag.handle());
}

void Reading::keepSection(OdDbTagList& tags)
{
    for (; !isAtSectionEnd(); advance())
        keep(tags);
}

void Reading::keepRecord(OdDbTagList& tags)
{
    do {
        keep(tags);
        advance();
    } while (m_tag.code != 0);
}

/// Layers that are frozen in a viewport stood by name in older files, and so does the source hand them out. False
/// for a layer that does not exist.
bool Reading::resolveName()
{
    if (m_tag.kind != OdDbTagKind::kText || m_recordName != "VIEWPORT")
        return true;
    OdDbObjectId const layer = m_names.find(OdDbTableKind::kLayer, m_tag.text);
    if (layer.isNull())
        note(odFormat(L"The layer \"%ls\", which is frozen in a viewport, does not exist",
                      OdString::fromUtf8(m_tag.text).c_str()));
    else
        m_tag = OdDbTag::ofHandle(kFrozenLayer, layer.getHandle());
    return !layer.isNull();
}

void Reading::beginRecord()
{
    if (m_peekAt)
        return; // begun by peeking
    m_firstNoteOfRecord = m_report.notes.size();
    m_recordName = m_tag.text;
    m_isRecordBroken = false;
}

OdDbTagList const& Reading::peekRecord()
{
    beginRecord();
    OdDbTag const name = m_tag;
    m_peekedPlace = m_source.place();
    m_peeked.clear();
    for (advance(); m_tag.code != 0; advance())
        m_peeked.put(m_tag);
    m_behindPeeked = m_tag;
    m_tag = name;
    m_peekAt = m_peeked.begin();
    return m_peeked;
}

RecordHead Reading::readRecord(OdDbObject& object)
{
    RecordHead head;
    head.place = place();
    OdDbRecordReader reader(object, m_names);
    beginRecord();
    for (advance(); m_tag.code != 0; advance()) {
        noteHandle();
        if (m_tag.code != kFrozenLayer || resolveName())
            reader.put(m_tag);
    }
    if (!reader.finish())
        note(head.place, reader.handle(),
             OdString::fromUtf8(m_recordName) +
                 L": A group in braces (102) has no end; it is closed at the end of the record");
    m_recordName = {};
    head.isBroken = m_isRecordBroken;
    head.handle = reader.handle();
    // Damage can come before the handle.
    for (std::size_t i = m_firstNoteOfRecord; i < m_report.notes.size(); ++i)
        m_report.notes[i].handle = head.handle;
    head.owner = reader.owner();
    head.isInPaperSpace = reader.isInPaperSpace();
    return head;
}

OdDbObjectId Reading::add(OdDbObject& object, OdDbObjectId owner, RecordHead const& head)
{
    OdDbHandle handle = head.handle;
    bool const isTaken = !m_database.getOdDbObjectId(handle).isNull();
    if (isTaken)
        handle = {};
    if (handle.isNull())
        m_names.openFreeHandles();
    OdDbObjectId const id = m_database.addOdDbObject(&object, owner, handle);
    if (isTaken)
        noteHandleChange(head.place, head.handle, id.getHandle());
    return id;
}

void Reading::noteHandleChange(std::size_t place, OdDbHandle inFile, OdDbHandle given)
{
    note(place, given,
         odFormat(L"The handle %ls is in use twice; this object has the handle %ls now", inFile.ascii().c_str(),
                  given.ascii().c_str()));
}

void Reading::note(std::size_t place, OdDbHandle handle, OdString text)
{
    if (m_report.notes.size() == TagSource::kMostReasons)
        ++m_report.moreNotes;
    else
        m_report.notes.push_back({place, handle, std::move(text)});
}

} // namespace dxf
