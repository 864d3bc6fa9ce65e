#pragma once

#include "host/app/command_memory.h"
#include "host/app/oa_app.h"
#include "host/app/undo_control.h"
#include "host/dxf/dxf_file.h"
#include "host/geom/od_ge_3d.h"

#include <memory>

class OdDbSelectionSet;

namespace ca {

class CaApp;
class SysVarStore;

/// A drawing that is open in the application. Made and destroyed by it: CaApp::openFile, close().
class CaDoc : public oa::ApDoc
{
public:
    CaDoc(CaApp& application, OdDbDatabasePtr drawing, OdString const& fileName, bool readOnly);
    ~CaDoc() override;

    /// The address of a closed document is not used again until many others were closed, so that who remembers
    /// documents by pointer does not take a new one for an old one.
    static void* operator new(std::size_t size);
    static void operator delete(void* memory);

    /// Distinguishes documents that were ever open; never used again.
    std::uint64_t serial() const { return m_serial; }

    /// Full path, empty for an unnamed drawing.
    OdString const& fileName() const { return m_fileName; }
    /// Name of the file with its extension, "Drawing1" and so on for an unnamed drawing.
    OdString title() const;
    /// A drawing opened for reading; it can be saved under another name only.
    bool isReadOnly() const { return m_isReadOnly; }

    /// Writes the drawing, whole or not at all; the path becomes the document's name and nothing counts as
    /// modified. An empty path writes nothing and makes the document unnamed. Format codes: dxf/dxf_file.h; the
    /// extension means nothing. On failure the reason is on the command line and everything stays as it was.
    ///
    /// Time stamps in the drawing stay as they are, so that saving a drawing twice gives equal files.
    bool saveAs(OdString const& path, int formatCode);

    /// What opening the file mended or left out, and the file that was opened (for an unnamed copy of a file, that
    /// file); empty for a new drawing. Saving leaves both.
    /// @{
    dxf::ReadReport const& openReport() const { return m_openReport; }
    OdString const& openedFrom() const { return m_openedFrom; }
    void setOpenReport(OdString const& path, dxf::ReadReport report);
    /// @}
    /// Writes a copy of the drawing; the document stays as it is. What the format cannot hold is said on the
    /// command line. Throws OdError as dxf::writeFile.
    void writeCopy(OdString const& fullPath, dxf::FileFormat format = {}) const;

    /// @name Changes since the drawing was opened or saved
    /// @{
    std::uint64_t modifications() const { return database()->changeCount() - m_savedCount; }
    /// Counts from now on as having had this many changes; 0: not modified.
    void setDbModified(int modifications);
    bool isModified() const override { return modifications() != 0; }
    void setModified(bool modified) override;
    /// @}

    /// Closes without saving and without asking; this object does not exist afterwards.
    void close();

    /// Drawing the view anew, and drawing what is still to be drawn. Documents have no window here, so there is
    /// nothing to draw.
    void redrawView() {}
    void flushGraphics() {}

    /// @name What commands remember
    /// @{
    /// The last point entered, in world coordinates.
    OdGePoint3d const& lastPoint() const { return m_lastPoint; }
    void setLastPoint(OdGePoint3d const& point) { m_lastPoint = point; }
    /// Direction in which the last line or arc ended: radians in the plane of the user coordinate system.
    double lastAngle() const { return m_lastAngle; }
    void setLastAngle(double angle) { m_lastAngle = angle; }
    /// A new limit forgets at once what lies beyond it.
    UndoControl const& undoControl() const { return m_undoControl; }
    void setUndoControl(UndoControl const& control);
    /// The outermost command begins, or has ended: its changes are one record of the undo log, as undoControl()
    /// and isUndoRecordingEnabled() want it. False when no record begins.
    bool beginUndoRecord(OdString const& command, bool ofViewOnly);
    void endUndoRecord();
    /// Null before the first selection.
    OdSmartPtr<OdDbSelectionSet> previousSelection() const;
    void setPreviousSelection(OdSmartPtr<OdDbSelectionSet> selection);
    /// Values of the variables that a document keeps but no file.
    SysVarStore& variables() { return *m_variables; }
    SysVarStore const& variables() const { return *m_variables; }
    /// Settings of commands that are no variables.
    CommandMemory& commandMemory() { return m_commandMemory; }
    /// @}

private:
    void setFileName(OdString const& fileName);
    void write(OdString const& fullPath, int formatCode);

    CaApp& m_application;
    std::uint64_t m_serial;
    OdString m_fileName;
    int m_number = 0; // in the title while unnamed
    bool m_isReadOnly;
    std::uint64_t m_savedCount = 0;
    dxf::ReadReport m_openReport;
    OdString m_openedFrom;
    OdGePoint3d m_lastPoint;
    double m_lastAngle = 0;
    OdSmartPtr<OdDbSelectionSet> m_previousSelection;
    UndoControl m_undoControl;
    std::unique_ptr<SysVarStore> m_variables;
    CommandMemory m_commandMemory;
};

} // namespace ca
