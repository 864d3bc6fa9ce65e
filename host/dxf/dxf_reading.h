#pragma once

#include "host/dxf/dxf_file.h"
#include "host/dxf/dxf_name_index.h"

#include <optional>

namespace dxf {

/// What a record says of its place in the drawing.
struct RecordHead
{
    std::size_t place = 0;
    OdDbHandle handle;
    OdDbHandle owner;
    bool isInPaperSpace = false;
    bool isBroken = false; ///< tags of it are lost
};

/// What the readers of the sections share while one drawing is read: the place in the file, one tag wide, the
/// drawing, its names, the report.
class Reading
{
public:
    Reading(OdDbDatabase& database, TagSource& source, ERelease release, ReadReport& report);
    ~Reading();
    Reading(Reading const&) = delete;
    Reading& operator=(Reading const&) = delete;

    OdDbDatabase& database() { return m_database; }
    NameIndex& names() { return m_names; }
    ERelease release() const { return m_release; }

    /// The tag at which the reading stands.
    OdDbTag const& tag() const { return m_tag; }
    bool isAt(int code, std::string_view text) const { return m_tag.is(code, text); }
    bool isAtRecord() const { return m_tag.code == 0; }
    /// The reading stands at an end mark of a section or at the begin of the next one: nothing of this one
    /// follows.
    bool isAtSectionEnd() const { return isAt(0, "ENDSEC") || isAt(0, "SECTION") || isAt(0, "EOF"); }
    std::size_t place() const { return m_peekAt ? m_peekedPlace : m_source.place(); }
    /// Goes to the next tag. A file that ends without its end mark gets one, and a note.
    void advance();
    /// Goes to the next group 0.
    void skipRecord();
    /// At the begin of a section of records: leaves out, with a note, what does not belong to one.
    void skipToRecord();
    /// The file ended without its end mark.
    bool isCutOff() const { return m_isCutOff; }
    /// Throws the error of the present place.
    [[noreturn]] void fail(OdString const& reason) const { m_source.fail(reason); }
    /// Puts comments, if the reading stands at some, into the list.
    void takeComments(OdDbTagList& comments);
    /// Puts the tags from here to the end of the section into the list as they are; stands at the end then.
    void keepSection(OdDbTagList& tags);
    /// Puts the record at which the reading stands into the list; stands at the next group 0 then.
    void keepRecord(OdDbTagList& tags);
    /// The tags of the record at which the reading stands, which it does not leave: for those whose class only
    /// they tell. They last until the record is read; places of damage are then known only as the record's.
    OdDbTagList const& peekRecord();
    /// Reads the record at which the reading stands into the object; stands at the next group 0 then.
    RecordHead readRecord(OdDbObject& object);

    /// Gives the object its place in the drawing, under the handle of its record where that is free.
    OdDbObjectId add(OdDbObject& object, OdDbObjectId owner, RecordHead const& head);
    /// Nothing more is read; objects that are added from now on get free handles.
    void allRecordsRead() { m_names.endOfFile(m_highestHandle); }
    void note(std::size_t place, OdDbHandle handle, OdString text);
    /// Notes that an object could not have the handle that its record names.
    void noteHandleChange(std::size_t place, OdDbHandle inFile, OdDbHandle given);
    /// A note at the present place that is not about one object.
    void note(OdString text) { note(place(), {}, std::move(text)); }

private:
    void beginRecord();
    void keep(OdDbTagList& tags);
    void noteHandle();
    bool resolveName();
    void damaged(Damage const& damage);

    OdDbDatabase& m_database;
    TagSource& m_source;
    ERelease m_release;
    ReadReport& m_report;
    NameIndex m_names;
    OdDbTag m_tag;
    std::string_view m_recordName; ///< of the record that is being read; empty between records
    bool m_isRecordBroken = false;
    std::size_t m_firstNoteOfRecord = 0;
    OdDbTagList m_peeked;
    std::size_t m_peekedPlace = 0;
    OdDbTag m_behindPeeked;
    std::optional<OdDbTagList::Iterator> m_peekAt; ///< the next tag to come from what was peeked at
    bool m_isCutOff = false;
    OdDbHandle m_highestHandle; ///< in records and kept tags, references to nothing included
};

} // namespace dxf
