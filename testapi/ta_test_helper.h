#pragma once

// For authors of C++ tests: the fixture that binds a test to a drawing, brings that into a known state and takes
// back what the test did; entities in one call; and the decision whether two entities are equal. Derive a test
// class from ta::TestHelperEx, or let it hold one, and call setUpDefault() and tearDownDefault().

#include "testapi/ta_host.h"

#include "testapi/ta_test_helper_mark.h"

namespace ta {

/// A test's document and drawing, and the user coordinate system (UCS) that the test works in.
class TestHelper : public TestHelperMark
{
public:
    /// What setUpDefault() does beside opening or arming; the numbers are fixed.
    enum ESetUpOptions : unsigned
    {
        kModelSpace = 1,  ///< makes model space the active space (TILEMODE)
        kStoreOsnaps = 2, ///< object snaps are restored at tear-down
        kDefaultUCS = 4   ///< see setDefaultUCS()
    };
    static constexpr unsigned kAllOptions = kModelSpace | kStoreOsnaps | kDefaultUCS;

    explicit TestHelper(unsigned options = kAllOptions);
    ~TestHelper() override;
    TestHelper(TestHelper const&) = delete;
    TestHelper& operator=(TestHelper const&) = delete;

    /// The document and the drawing that all functions of the fixture work in; a derived fixture may redirect
    /// them. Throw OdError(eNoDocument) while none is bound, and when it was closed meanwhile.
    virtual ca::CaDoc& doc() const;
    virtual OdDbDatabase& db() const;

    /// @name Binding
    /// @{
    /// Binds to the current document. Throws the text "No current document" (a char const*) where there is none.
    void setUpDoc();
    /// Binds, and arms undo: everything that changes from now on is one record, whoever changes it, and commands
    /// begin none of their own.
    void setUpImp();
    /// Opens a drawing as the current document and binds to it; "" makes a new drawing. References to environment
    /// variables are expanded. Fails the test where there is no such file, or it cannot be opened.
    void setUpDwgDoc(OdString const& fileName);
    void setUpNewDoc() { setUpDwgDoc(OdString()); }
    /// Cancels what waits for answers, takes back everything since setUpImp() and leaves undo recording as it was;
    /// the document counts as unmodified, and there is nothing to redo. Nothing unless armed. Fails the test where
    /// a change cannot be taken back; undo recording is as it was all the same.
    void tearDownImp();
    /// Cancels what waits for answers and closes the document without saving if setUpDwgDoc() opened it; then
    /// binds to what is current. Fails the test where the document stays open.
    void tearDownDwgDoc();
    void tearDownNewDoc() { tearDownDwgDoc(); }
    /// Cancels what waits for answers, makes doc() current and closes it through the command line, discarding
    /// changes. Nothing without a document.
    /// Fails the test where the document stays open, and is bound to it still.
    void closeDoc();
    /// @}

    /// @name User coordinate system
    /// @{
    /// Origin (7, 8, 9), the world's axes turned by 10 degrees about X, then 20 about Y, then 30 about Z: skewed,
    /// so that every test goes through the conversions. The matrices stay as they are, see resetMatrix().
    void setDefaultUCS();
    /// Angles in degrees, about the axes of the system turned so far.
    void setDefaultUCS(OdGePoint3d const& origin, double rotX, double rotY, double rotZ);
    void setUCSORG(OdGePoint3d const& origin);
    /// Reads the current UCS of the drawing again.
    void resetMatrix();
    OdGeVector3d const& ucsNormal() const { return m_ucsNormal; }
    OdGeMatrix3d const& worldToUcs() const { return m_worldToUcs; }
    OdGeMatrix3d const& ucsToWorld() const { return m_ucsToWorld; }
    /// @}

    /// Saves the drawing; the document keeps its name. Fails the test where that cannot be done.
    void saveFile(wchar_t const* fileName);

protected:
    ca::CaDoc* m_pDoc = nullptr;
    OdDbDatabase* m_pDb = nullptr;
    bool m_undoWasEnabled = false;
    OdGeVector3d m_ucsNormal{0, 0, 1};
    OdGeMatrix3d m_worldToUcs;
    OdGeMatrix3d m_ucsToWorld;
    unsigned m_options;
    bool m_docOpenedHere = false;
    ca::ViewState* m_viewState = nullptr;
    ca::OsnapStore m_osnapStore;

private:
    /// What setUpImp() armed and tearDownImp() has not taken back yet. The drawing is held: the test may close the
    /// document.
    ca::CaDoc* m_armedDoc = nullptr;
    OdDbDatabasePtr m_armedDb;
};

/// The fixture of most tests: set-up and tear-down in one call, entities in one call, comparison.
class TestHelperEx : public TestHelper
{
public:
    /// Tolerances: distances and most comparisons; angles.
    static constexpr double s_eps = 1e-06;
    static constexpr double s_epsA = 1e-08;

    using TestHelper::TestHelper;

    /// Binds to a new document, which is closed at the end, or to the current one, which is armed for undo; then
    /// does what the options say.
    void setUpDefault(bool newDoc);
    /// Takes back what setUpDefault() and the test did. Object snaps are restored whatever happens. A second call
    /// does nothing.
    void tearDownDefault();

    /// @name Creating entities
    /// Each appends a new entity to the owner, a block table record, and returns its id. Points and vectors are
    /// world coordinates, angles radians; color, layer, linetype and so on are the current ones of the drawing.
    /// Normals need not be of unit length. A null normal is that of the fixture's UCS in a layout for arcs,
    /// circles, points, traces, solids, ellipses, texts, attribute definitions and polylines in a plane; for
    /// others, and in a block that is no layout, it is the entity's own default.
    ///
    /// Throw OdError: OdError_NotThatKindOfClass for an owner of another class, eNullObjectId, eWasErased,
    /// eDegenerateGeometry for a zero normal, eWrongDatabase for a block of another drawing, eInvalidInput for
    /// null points, eNoDocument for a polyline in a layout while no document is bound, and what the setters of the
    /// entity throw; then nothing was created.
    /// @{
    OdDbObjectId createLine(OdDbObjectId const& ownerId, OdGePoint3d const& start, OdGePoint3d const& end,
                            OdGeVector3d const* normal = nullptr);
    /// A new block; the owner is the block table.
    OdDbObjectId createBTR(OdDbObjectId const& ownerId, OdString const& name, OdGePoint3d const& origin = {});
    OdDbObjectId createMinsert(OdDbObjectId const& ownerId, OdDbObjectId const& blockId,
                               OdGePoint3d const& position, double rotation, OdGeVector3d const* normal,
                               OdGeScale3d const& scale, int columns, int rows, double columnSpacing,
                               double rowSpacing);
    OdDbObjectId createInsert(OdDbObjectId const& ownerId, OdDbObjectId const& blockId,
                              OdGePoint3d const& position, double rotation, OdGeVector3d const* normal,
                              OdGeScale3d const& scale);
    /// In the active space of the block's drawing, unscaled.
    OdDbObjectId createInsert(OdDbObjectId const& blockId, OdGePoint3d const& position, double rotation = 0,
                              OdGeVector3d const* normal = nullptr);
    /// A polyline in a plane, with vertices of its own (`is2d`) or without. Its points are coordinates of the
    /// plane; in a layout they count from the UCS instead, as does the elevation. Bulges and widths belong to the
    /// segments that leave the points; what is missing counts as 0.
    OdDbObjectId createPline(OdDbObjectId const& ownerId, OdArray<OdGePoint2d> const& points,
                             OdArray<double> const* bulges = nullptr, bool is2d = false, bool closed = false,
                             OdGeVector3d const* normal = nullptr, double elevation = 0,
                             OdArray<double> const* startWidths = nullptr,
                             OdArray<double> const* endWidths = nullptr);
    OdDbObjectId createPline3d(OdDbObjectId const& ownerId, OdArray<OdGePoint3d> const& points,
                               bool closed = false);
    OdDbObjectId createArc(OdDbObjectId const& ownerId, OdGePoint3d const& center, double radius,
                           double startAngle, double endAngle, OdGeVector3d const* normal = nullptr);
    OdDbObjectId createCircle(OdDbObjectId const& ownerId, OdGePoint3d const& center, double radius,
                              OdGeVector3d const* normal = nullptr);
    OdDbObjectId createXline(OdDbObjectId const& ownerId, OdGePoint3d const& base, OdGeVector3d const& direction);
    OdDbObjectId createRay(OdDbObjectId const& ownerId, OdGePoint3d const& base, OdGeVector3d const& direction);
    /// `points` holds mSize * nSize points, row after row.
    OdDbObjectId createPgMesh(OdDbObjectId const& ownerId, OdGePoint3d const* points, int mSize, int nSize,
                              bool mClosed = false, bool nClosed = false);
    /// `points` holds four corners; the third and the fourth lie crosswise, as the commands ask for them.
    OdDbObjectId createTrace(OdDbObjectId const& ownerId, OdGePoint3d const* points,
                             OdGeVector3d const* normal = nullptr);
    OdDbObjectId createSolid(OdDbObjectId const& ownerId, OdGePoint3d const* points,
                             OdGeVector3d const* normal = nullptr);
    OdDbObjectId createPoint(OdDbObjectId const& ownerId, OdGePoint3d const& position,
                             OdGeVector3d const* normal = nullptr);
    OdDbObjectId createEllipse(OdDbObjectId const& ownerId, OdGePoint3d const& center,
                               OdGeVector3d const& majorAxis, double radiusRatio, double startAngle = 0,
                               double endAngle = Oda2PI, OdGeVector3d const* normal = nullptr);
    OdDbObjectId createSpline(OdDbObjectId const& ownerId, int degree, bool rational, bool closed,
                              OdArray<OdGePoint3d> const& controlPoints, OdGeKnotVector const& knots,
                              OdArray<double> const* weights = nullptr, double tolerance = 1e-7);
    OdDbObjectId createText(OdDbObjectId const& ownerId, OdGePoint3d const& position, OdString const& text,
                            OdGeVector3d const* normal = nullptr);
    OdDbObjectId createAttDef(OdDbObjectId const& ownerId, OdGePoint3d const& position, OdString const& text,
                              OdString const& tag, OdString const& prompt, OdGeVector3d const* normal = nullptr);
    /// @}

    /// Appends an entity that is in no drawing to the active space.
    OdDbObjectId appendEntity(OdDbEntity* entity);
    /// A transformed copy that is in no drawing; fails the test where the entity cannot be transformed so, with
    /// `copy` as it was.
    static void getTransformedCopy(OdDbEntity const* entity, OdGeMatrix3d const& matrix,
                                   OdSmartPtr<OdDbEntity>& copy);

    /// Equal when they are the same value, or reals or points of the same type that differ by at most `tol`; so
    /// with nested buffers.
    static bool resbufsEqual(OdResBuf const& a, OdResBuf const& b, double tol);

    /// Fails the test at the first property in which an entity (pEnt1) differs from the expected one (pEnt2), and
    /// for classes that it does not know. The common properties are color, layer, linetype, linetype scale and
    /// lineweight; layers and other records are equal when they are the same object, so entities of two drawings
    /// are compared without common properties, or through ta::DrawingComparison. `tolerance` is for widths and
    /// heights of viewports, `relTolerance` for lightweight polylines, fit tolerances and ellipse parameters;
    /// everything else agrees to s_eps. Neither entity may be null. Failures show the place of the call.
    static void compareEntities(OdDbEntity const* pEnt1, OdDbEntity const* pEnt2, bool skipCommonProps = false,
                                double tolerance = s_eps, double relTolerance = s_eps,
                                char const* file = __builtin_FILE(), int line = __builtin_LINE());
};

/// @name Comparisons of what several classes have in common
/// Each fails the test at the first property that differs.
/// @{
void compareTextFields(OdDbText const* pEnt1, OdDbText const* pEnt2);
void compareMTextEnts(OdDbEntity const* pEnt1, OdDbEntity const* pEnt2);
void compareAsBlockRef(OdDbEntity const* pEnt1, OdDbEntity const* pEnt2);
/// @}

} // namespace ta
