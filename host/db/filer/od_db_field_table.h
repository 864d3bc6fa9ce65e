#pragma once

#include "host/db/filer/od_db_field.h"

#include <array>

/// Finds what the names and handles of a file stand for.
class OdDbReferenceResolver
{
public:
    virtual ~OdDbReferenceResolver() = default;
    virtual OdDbObjectId byName(OdDbTableKind table, std::string_view utf8Name) = 0;
    virtual OdDbObjectId byHandle(OdDbHandle handle) = 0;
};

/// The sections of one class, from the base class down, with an index by group code. Sections of equal marker form
/// one group: below the marker, a tag belongs to whichever of them has its code.
class OdDbFieldTable
{
public:
    explicit OdDbFieldTable(std::vector<OdDbSection> sections);

    std::span<OdDbSection const> sections() const { return m_sections; }
    int numGroups() const { return static_cast<int>(m_groups.size()); }
    /// The group of a marker, or -1. A marker of its own goes before the other markers of a group.
    int groupOf(std::string_view marker) const;

    /// Gives the tag to the field that it belongs to; group -1 (a file without markers) searches all groups.
    /// False when no field and no tail takes it.
    bool read(OdDbObject& object, int group, OdDbTag const& tag, OdDbReferenceResolver& resolver) const;
    /// Writes the marker, the fields and the tails of one group; false when another group stands in for it.
    bool write(OdDbObject const& object, int group, OdDbTagSink& sink) const;
    /// The file that the object came from had fields of this group.
    bool wasRead(OdDbObject const& object, int group) const;

private:
    static constexpr int kLastCode = 511;
    struct Group
    {
        std::string_view marker;
        std::span<std::string_view const> otherMarkers;
        std::vector<int> sections;
        std::array<std::int16_t, kLastCode + 1> fieldOfCode;
    };
    void indexSection(int number);
    bool readInGroup(OdDbObject& object, Group const& group, OdDbTag const& tag,
                     OdDbReferenceResolver& resolver) const;
    /// An object as its constructor leaves it: it holds the defaults.
    OdDbObject& prototype(OdDbObject const& object) const;

    std::vector<OdDbSection> m_sections;
    std::vector<int> m_firstField; ///< number of the first field of each section, fields counted through
    std::vector<OdDbField> m_fields;
    std::vector<Group> m_groups;
    mutable OdDbObjectPtr m_prototype;
};
