#pragma once

#include "host/db/od_db_color.h"
#include "host/db/od_db_file_content.h"
#include "host/db/od_db_handle_table.h"
#include "host/db/od_db_header.h"
#include "host/db/od_db_object.h"
#include "host/db/undo/od_db_undo_log.h"

#include <deque>

class OdDbSymbolTable;

/// A drawing: owner of all its objects, found by handle. Objects that something still points to when the drawing
/// goes live on without it.
class OdDbDatabase : public OdDbObject
{
    OD_DECLARE_CLASS(OdDbDatabase)
public:
    /// A new drawing from the built-in template, or an empty one for a filer (no tables, no dictionary).
    explicit OdDbDatabase(bool fromTemplate = true);
    ~OdDbDatabase() override;

    /// @name Tables and spaces. The ids never change during the drawing's life
    /// @{
    OdDbObjectId getTableId(OdDbTableKind kind) const { return m_tables[static_cast<std::size_t>(kind)]; }
    OdDbObjectId getBlockTableId() const { return getTableId(OdDbTableKind::kBlock); }
    OdDbObjectId getLayerTableId() const { return getTableId(OdDbTableKind::kLayer); }
    OdDbObjectId getLinetypeTableId() const { return getTableId(OdDbTableKind::kLinetype); }
    OdDbObjectId getTextStyleTableId() const { return getTableId(OdDbTableKind::kTextStyle); }
    OdDbObjectId getDimStyleTableId() const { return getTableId(OdDbTableKind::kDimStyle); }
    OdDbObjectId getRegAppTableId() const { return getTableId(OdDbTableKind::kRegApp); }
    OdDbObjectId getUCSTableId() const { return getTableId(OdDbTableKind::kUcs); }
    OdDbObjectId getViewTableId() const { return getTableId(OdDbTableKind::kView); }
    OdDbObjectId getViewportTableId() const { return getTableId(OdDbTableKind::kViewport); }
    OdDbObjectId getNamedObjectsDictionaryId() const { return m_namedObjects; }
    OdDbObjectId getModelSpaceId() const { return m_modelSpace; }
    OdDbObjectId getPaperSpaceId() const { return m_paperSpace; }
    /// @}

    /// @name Records that every drawing has, and the current ones that new entities take
    /// @{
    OdDbObjectId getLayerZeroId() const;
    OdDbObjectId getLinetypeByLayerId() const;
    /// What an entity has that names no record of the table, as files leave it out: linetype ByLayer, text style
    /// Standard. Null for other tables and in a drawing without that record.
    OdDbObjectId getUsual(OdDbTableKind kind) const;
    OdDbObjectId getCLAYER() const { return current(OdDbTableKind::kLayer); }
    OdDbObjectId getCELTYPE() const { return current(OdDbTableKind::kLinetype); }
    OdDbObjectId getTEXTSTYLE() const { return current(OdDbTableKind::kTextStyle); }
    OdDbObjectId getDIMSTYLE() const { return current(OdDbTableKind::kDimStyle); }
    OdDbObjectId current(OdDbTableKind kind) const { return m_current[static_cast<std::size_t>(kind)]; }
    /// Throws OdError(eWrongDatabase) for an id of another drawing. Undoable.
    void setCurrent(OdDbTableKind kind, OdDbObjectId record);
    /// The color that new entities take. Files keep of a true color the palette color that is nearest to it.
    OdCmColor getCECOLOR() const;
    /// Undoable.
    void setCECOLOR(OdCmColor const& color);
    /// Model space is the active space (TILEMODE). Undoable.
    bool getTILEMODE() const { return m_header.integer("TILEMODE", 1) != 0; }
    void setTILEMODE(bool on);
    /// @}

    OdDbHeader const& header() const { return m_header; }
    /// Undoable.
    void setHeaderVariable(std::string_view name, OdDbTagList tags);
    void setHeaderReal(std::string_view name, int code, double value);
    void setHeaderInteger(std::string_view name, int code, std::int64_t value);
    void setHeaderPoint(std::string_view name, OdGePoint3d const& value, int coordinates = 3);
    void setHeaderText(std::string_view name, int code, OdString const& value);

    /// The object of a handle, erased ones included, or a null id. With `create`, an unknown handle gets an id
    /// that becomes valid when an object with that handle is added. Handle 0 is the null id.
    OdDbObjectId getOdDbObjectId(OdDbHandle handle, bool create = false);
    /// The handle that the next new object gets.
    OdDbHandle handseed() const { return m_handseed; }
    /// Raises the next handle to at least this one; filers call it before they add objects. Absurdly large
    /// handles, as damaged files hold them, leave it: the handles after them would run out.
    void raiseHandseed(OdDbHandle seed);
    /// The same for a handle in use, of which smaller ones count as absurd: new ones have room between both
    /// limits.
    void raiseHandseedAbove(OdDbHandle handle);
    /// Makes the object part of the drawing under a new handle or the one given. The caller puts it where it
    /// belongs (a block, a table). Throws OdError: eAlreadyInDb, eDuplicateKey (the handle is taken).
    OdDbObjectId addOdDbObject(OdDbObject* object, OdDbObjectId owner, OdDbHandle handle = {});
    /// Objects of no table and no block (dictionaries, layouts, unknown ones), in order of adding.
    std::vector<OdDbStub*> const& fileObjects() const { return m_fileObjects; }

    /// @name Undo
    /// @{
    void startUndoRecord(OdString const& name = {}) { m_undo.start(name); }
    /// Takes back everything since the start of the last record, by whatever caller; nothing when nothing changed
    /// since. Works while recording is off.
    void undo() { m_undo.undo(); }
    void redo() { m_undo.redo(); }
    /// A plain flag, not a counter.
    void disableUndoRecording(bool disable) { m_undo.enable(!disable); }
    OdDbUndoLog& undoLog() { return m_undo; }
    /// @}

    /// Counts changes; a document compares it with the count at the last save.
    std::uint64_t changeCount() const { return m_changes; }
    void noteChange() { ++m_changes; }

    OdDbFileContent& fileContent() { return m_fileContent; }
    OdDbFileContent const& fileContent() const { return m_fileContent; }

    /// @name For filers, which build a drawing from nothing
    /// @{
    /// A filer is at work: blocks are completed by it, not on adding.
    bool isBeingRead() const { return m_isBeingRead; }
    void setBeingRead(bool on) { m_isBeingRead = on; }
    void setTableId(OdDbTableKind kind, OdDbObjectId id) { m_tables[static_cast<std::size_t>(kind)] = id; }
    void setNamedObjectsDictionaryId(OdDbObjectId id) { m_namedObjects = id; }
    void setSpaces(OdDbObjectId model, OdDbObjectId paper);
    OdDbHeader& editHeader() { return m_header; }
    /// Adds whatever a drawing must have and this one lacks: tables, records, spaces, dictionaries, layouts.
    void completeFromTemplate();
    /// The object was added when the drawing was made or opened, by completeFromTemplate: it says nothing about
    /// the drawing.
    bool isFromTemplate(OdDbHandle handle) const
    {
        return handle >= m_firstFromTemplate && handle < m_endFromTemplate;
    }
    /// @}

    OdDbSymbolTable& table(OdDbTableKind kind) const;

    /// Tells drawings apart beyond their lives: positive, and of no other drawing of this run.
    std::int64_t serial() const { return m_serial; }
    /// The drawing of a serial; null when it is gone or never was.
    static OdDbDatabase* ofSerial(std::int64_t serial);

private:
    friend class OdDbCreateStep;
    friend class OdDbHeaderStep;
    friend class OdDbCurrentStep;
    friend class OdDbCurrentColorStep;

    OdDbHandle freeHandle() const;

    std::int64_t m_serial;
    std::deque<OdDbStub> m_stubs;
    OdDbHandleTable m_handles;
    OdDbHandle m_handseed{1};
    OdDbHandle m_firstFromTemplate;
    OdDbHandle m_endFromTemplate;
    std::vector<OdDbStub*> m_fileObjects;
    std::array<OdDbObjectId, kOdDbTableKinds> m_tables;
    std::array<OdDbObjectId, kOdDbTableKinds> m_current;
    OdCmColor m_currentTrueColor; ///< counts while its nearest palette color is the current one
    OdDbObjectId m_namedObjects;
    OdDbObjectId m_modelSpace;
    OdDbObjectId m_paperSpace;
    OdDbHeader m_header;
    OdDbFileContent m_fileContent;
    OdDbUndoLog m_undo{*this};
    std::uint64_t m_changes = 0;
    bool m_isBeingRead = false;
};
using OdDbDatabasePtr = OdSmartPtr<OdDbDatabase>;
