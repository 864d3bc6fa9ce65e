#pragma once

#include "host/dxf/dxf_file.h"
#include "host/dxf/dxf_name_index.h"

namespace dxf {

/// What a record says of its place in the drawing.
struct RecordHead
{
    std::size_t line = 0;
    OdDbHandle handle;
    OdDbHandle owner;
    bool isInPaperSpace = false;
};

/// What the readers of the sections share while one drawing is read: the place in the file, one tag wide, the
/// drawing, its names, the report.
class Reading
{
public:
    Reading(OdDbDatabase& database, TagSource& source, ReadReport& report)
        : m_database(database), m_source(source), m_report(report), m_names(database, source)
    {
    }
    Reading(Reading const&) = delete;
    Reading& operator=(Reading const&) = delete;

    OdDbDatabase& database() { return m_database; }
    NameIndex& names() { return m_names; }

    /// The tag at which the reading stands.
    OdDbTag const& tag() const { return m_tag; }
    bool isAt(int code, std::string_view text) const { return m_tag.is(code, text); }
    std::size_t line() const { return m_source.line(); }
    /// Goes to the next tag; the end of the file is an error.
    void advance();
    /// Throws the error of the present line.
    [[noreturn]] void fail(OdString const& reason) const { m_source.fail(reason); }
    /// Puts comments, if the reading stands at some, into the list.
    void takeComments(OdDbTagList& comments);
    /// Puts the tags from here to the end mark of group 0 into the list as they are; stands at the mark then.
    void keepUntil(std::string_view endMark, OdDbTagList& tags);
    /// Puts the record at which the reading stands into the list; stands at the next group 0 then.
    void keepRecord(OdDbTagList& tags);
    /// Reads the record at which the reading stands into the object; stands at the next group 0 then.
    RecordHead readRecord(OdDbObject& object);

    /// Gives the object its place in the drawing, under the handle of its record where that is free.
    OdDbObjectId add(OdDbObject& object, OdDbObjectId owner, RecordHead const& head);
    /// Nothing more is read; objects that are added from now on get free handles.
    void allRecordsRead() { m_names.openFreeHandlesAbove(m_highestHandle); }
    void note(std::size_t line, OdDbHandle handle, OdString text);

private:
    void keep(OdDbTagList& tags);
    void noteHandle();

    OdDbDatabase& m_database;
    TagSource& m_source;
    ReadReport& m_report;
    NameIndex m_names;
    OdDbTag m_tag;
    OdDbHandle m_highestHandle; ///< in records and kept tags, references to nothing included
};

} // namespace dxf
