#include "host/dxf/dxf_reading.h"

#include "host/db/filer/od_db_record_reader.h"

namespace dxf {

void Reading::advance()
{
    if (!m_source.next(m_tag))
        fail(L"The file ends without its end mark EOF; it is cut off");
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

void Reading::keepUntil(std::string_view endMark, OdDbTagList& tags)
{
    for (; !isAt(0, endMark); advance()) {
        if (isAt(0, "EOF"))
            fail(odFormat(L"The file ends before %ls", OdString::fromUtf8(endMark).c_str()));
        keep(tags);
    }
}

void Reading::keepRecord(OdDbTagList& tags)
{
    do {
        keep(tags);
        advance();
    } while (m_tag.code != 0);
}

RecordHead Reading::readRecord(OdDbObject& object)
{
    RecordHead head;
    head.line = line();
    OdDbRecordReader reader(object, m_names);
    for (advance(); m_tag.code != 0; advance()) {
        noteHandle();
        reader.put(m_tag);
    }
    head.handle = reader.handle();
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
        note(head.line, id.getHandle(),
             odFormat(L"The handle %ls is in use twice; this object has the handle %ls now",
                      head.handle.ascii().c_str(), id.getHandle().ascii().c_str()));
    return id;
}

void Reading::note(std::size_t line, OdDbHandle handle, OdString text)
{
    m_report.notes.push_back({line, handle, std::move(text)});
}

} // namespace dxf
