#pragma once

#include "host/db/od_db_object.h"

/// Reads the tags of one record (what follows "0 NAME" up to the next 0) into a new object that has no drawing
/// yet. Every tag finds a place: a field, an envelope item (handle, owner, reactors ...), or the object's extras.
class OdDbRecordReader
{
public:
    OdDbRecordReader(OdDbObject& object, OdDbReferenceResolver& resolver);

    void put(OdDbTag const& tag);
    /// Gives the tag to a field or tail of the class, of any section where the present one does not have it: for
    /// records whose order is not that of files. False, and the tag is left out, when none takes it and in what
    /// the class does not know: embedded objects, groups in braces, sections of other classes.
    bool putIntoAnySection(OdDbTag const& tag);
    /// Behind the last tag. False when a group in braces lacked its end, which it has now.
    bool finish();

    /// Null when the record has none.
    OdDbHandle handle() const { return m_handle; }
    OdDbHandle owner() const { return m_owner; }
    /// The record says that it lies in paper space (group 67).
    bool isInPaperSpace() const { return m_isInPaperSpace; }

private:
    enum class EBraces
    {
        kNone,
        kExtensionDictionary,
        kReactors,
        kOther
    };

    bool takeEnvelope(OdDbTag const& tag);
    void takeGroupTag(OdDbTag const& tag);
    void enterSection(std::string_view marker);
    void enterEmbedded();
    void keep(OdDbTag const& tag);
    bool isInForeignSection() const { return m_isInUnknownObject || !m_unknownMarkerText.empty(); }

    OdDbObject& m_object;
    OdDbFieldTable const& m_table;
    OdDbReferenceResolver& m_resolver;
    OdDbHandle m_handle;
    OdDbHandle m_owner;
    int m_group = -1;
    std::string m_unknownMarkerText; ///< of the section that is being read, when the table does not have it
    EBraces m_braces = EBraces::kNone;
    bool m_isInUnknownObject = false; ///< an embedded one that the class has no section for
    bool m_hasMarker = false;
    bool m_isInExtendedData = false;
    bool m_isInPaperSpace = false;
};
