// RECTANG: a rectangle as a closed polyline, by two corners, by its sides or by its area.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/ask_number.h"
#include "host/app/commands/rectangle_shape.h"
#include "host/app/sys_var.h"

namespace ca {

namespace {

/// What RECTANG keeps from one rectangle to the next; width is that of polylines (PLINEWID).
struct RectangleModes
{
    RectangleCorners corners;
    std::optional<double> elevation; ///< else the height of the first corner
    std::optional<double> thickness; ///< else the current one
    double rotation = 0;             ///< counted as users do, from the X axis of their coordinate system
    double length = 10;
    double width = 10;
    double area = 100;
};

RectangleModes& modesOf(Editor& editor)
{
    return editor.doc().commandMemory().get<RectangleModes>();
}

double variable(Editor& editor, wchar_t const* name)
{
    return std::get<double>(SysVar::find(name)->value(&editor.doc()));
}

/// Says which modes are not those of a plain rectangle.
void reportModes(Editor& editor)
{
    RectangleModes const& modes = modesOf(editor);
    OdString text;
    if (modes.corners.areCut())
        text += modes.corners.isRound ? odFormat(L"  Fillet=%g", modes.corners.before)
                                      : odFormat(L"  Chamfer=%g x %g", modes.corners.before, modes.corners.behind);
    if (modes.elevation)
        text += odFormat(L"  Elevation=%g", *modes.elevation);
    if (modes.rotation != 0)
        text += odFormat(L"  Rotation=%g", odgeToDegrees(modes.rotation));
    if (modes.thickness)
        text += odFormat(L"  Thickness=%g", *modes.thickness);
    if (double const width = variable(editor, L"PLINEWID"); width != 0)
        text += odFormat(L"  Width=%g", width);
    if (!text.isEmpty())
        editor.message(L"Current rectangle modes:" + text);
}

// @name Options before the first corner

Task<> askChamfer(Editor& editor)
{
    RectangleCorners& corners = modesOf(editor).corners;
    double const first = corners.isRound ? 0 : corners.before;
    double const second = corners.isRound ? 0 : corners.behind;
    double const before =
        co_await askDistance(editor, Prompt(L"Specify first chamfer distance for rectangles").atLeast(0), first);
    double const behind =
        co_await askDistance(editor, Prompt(L"Specify second chamfer distance for rectangles").atLeast(0),
                             second == first ? before : second);
    corners.before = before;
    corners.behind = behind;
    corners.isRound = false;
}

Task<> askFillet(Editor& editor)
{
    RectangleCorners& corners = modesOf(editor).corners;
    double const present = corners.isRound ? corners.before : 0;
    double const radius =
        co_await askDistance(editor, Prompt(L"Specify fillet radius for rectangles").atLeast(0), present);
    corners.before = radius;
    corners.behind = radius;
    corners.isRound = true;
}

Task<> askElevation(Editor& editor)
{
    std::optional<double>& elevation = modesOf(editor).elevation;
    double const present = elevation ? *elevation : variable(editor, L"ELEVATION");
    elevation = co_await askDistance(editor, Prompt(L"Specify the elevation for rectangles"), present);
}

Task<> askThickness(Editor& editor)
{
    std::optional<double>& thickness = modesOf(editor).thickness;
    double const present = thickness ? *thickness : variable(editor, L"THICKNESS");
    thickness = co_await askDistance(editor, Prompt(L"Specify thickness for rectangles"), present);
}

Task<> askWidth(Editor& editor)
{
    double const present = variable(editor, L"PLINEWID");
    double const width =
        co_await askDistance(editor, Prompt(L"Specify line width for rectangles").atLeast(0), present);
    if (width != present)
        SysVar::find(L"PLINEWID")->set(width, &editor.doc());
}

struct ModeOption
{
    wchar_t const* keyword;
    Task<> (*ask)(Editor&);
};
constexpr ModeOption kModeOptions[] = {
    {L"Chamfer", &askChamfer},     {L"Elevation", &askElevation}, {L"Fillet", &askFillet},
    {L"Thickness", &askThickness}, {L"Width", &askWidth},
};

Task<OdGePoint3d> askFirstCorner(Editor& editor)
{
    for (;;) {
        Answer const answer = co_await editor.point(
            Prompt(L"Specify first corner point or").keywords(L"Chamfer Elevation Fillet Thickness Width"));
        if (answer.isValue())
            co_return answer.point;
        for (ModeOption const& option : kModeOptions)
            if (answer.isKeyword(option.keyword))
                co_await option.ask(editor);
    }
}

// @name From the first corner on

/// The rectangle of one command, as far as it is known.
class Rectangle
{
public:
    Rectangle(Editor& editor, OdGePoint3d const& first)
        : m_editor(editor), m_first(first), m_plane(editor, atElevation(first))
    {
    }

    OdGePoint3d const& first() const { return m_first; }

    /// From the first corner to another point: along the length and along the width.
    OdGeVector2d wayTo(OdGePoint3d const& point) const
    {
        OdGeVector2d const way = m_plane.toPlane(point) - m_plane.toPlane(m_first);
        return {way.dotProduct(lengthDirection()), way.crossProduct(lengthDirection()) * -1};
    }

    /// Sides with a sign each.
    void draw(OdGeVector2d const& sides) const
    {
        if (std::abs(sides.x) <= OdGeContext::gTol.equalPoint() ||
            std::abs(sides.y) <= OdGeContext::gTol.equalPoint())
            throw AnswerRejected(L"The corners must differ in both directions of the rectangle.");
        RectangleModes const& modes = modesOf(m_editor);
        if (modes.corners.areCut() && !modes.corners.fit(std::abs(sides.x), std::abs(sides.y)))
            m_editor.message(L"The rectangle is too small for its corners to be cut.");
        OdGeVector2d const length = lengthDirection();
        auto const vertices = rectangleVertices(m_plane.toPlane(m_first), length * sides.x,
                                                length.perpVector() * sides.y, modes.corners);
        double const thickness = modes.thickness ? *modes.thickness : variable(m_editor, L"THICKNESS");
        drawClosedPolyline(m_editor, m_plane, vertices, variable(m_editor, L"PLINEWID"), thickness);
    }

private:
    OdGePoint3d atElevation(OdGePoint3d const& point) const
    {
        std::optional<double> const elevation = modesOf(m_editor).elevation;
        if (!elevation)
            return point;
        OdGePoint3d inUcs = m_editor.ucsToWorld().inverse() * point;
        inUcs.z = *elevation;
        return m_editor.ucsToWorld() * inUcs;
    }
    OdGeVector2d lengthDirection() const { return m_plane.directionOf(modesOf(m_editor).rotation); }

    Editor& m_editor;
    OdGePoint3d m_first;
    DrawingPlane m_plane;
};

Task<double> askSide(Editor& editor, OdString question, double present)
{
    double const side = co_await askDistance(editor, Prompt(question).atLeast(0, true), present);
    co_return side;
}

/// The area and one side give the other one; the rectangle goes to the right and up.
Task<> drawByArea(Editor& editor, Rectangle const& rectangle)
{
    RectangleModes& modes = modesOf(editor);
    Answer const area = co_await editor.real(Prompt(L"Enter area of rectangle in current units")
                                                 .defaultText(odFormat(L"%g", modes.area))
                                                 .atLeast(0, true));
    if (area.isValue())
        modes.area = area.real;
    Answer const basis = co_await editor.keyword(
        Prompt(L"Calculate rectangle dimensions based on").keywords(L"Length Width").defaultText(L"Length"));
    bool const isByWidth = basis.isKeyword(L"Width");
    double& given = isByWidth ? modes.width : modes.length;
    double& other = isByWidth ? modes.length : modes.width;
    given = co_await askSide(editor, isByWidth ? L"Enter rectangle width" : L"Enter rectangle length", given);
    other = rectangleSide(modes.area, given, modes.corners);
    rectangle.draw({modes.length, modes.width});
}

Task<> askDimensions(Editor& editor)
{
    RectangleModes& modes = modesOf(editor);
    modes.length = co_await askSide(editor, L"Specify length for rectangles", modes.length);
    modes.width = co_await askSide(editor, L"Specify width for rectangles", modes.width);
}

Task<> askRotation(Editor& editor, OdGePoint3d base)
{
    double& rotation = modesOf(editor).rotation;
    Answer const answer = co_await editor.angle(Prompt(L"Specify rotation angle or [Pick points]")
                                                    .hiddenKeywords(L"Pick")
                                                    .defaultText(odFormat(L"%g", odgeToDegrees(rotation)))
                                                    .base(base));
    if (answer.isValue())
        rotation = answer.real;
    if (!answer.isKeyword())
        co_return;
    Answer const first = co_await editor.point(Prompt(L"Specify first point"));
    Answer const second = co_await editor.point(Prompt(L"Specify second point").base(first.point));
    OdGeVector2d const direction = (editor.ucsToWorld().inverse() * (second.point - first.point)).convert2d();
    if (direction.isZeroLength())
        throw AnswerRejected(L"The two points are the same.");
    rotation = direction.angle();
}

Task<> rectangCommand(Editor& editor)
{
    reportModes(editor);
    OdGePoint3d const first = co_await askFirstCorner(editor);
    Rectangle const rectangle(editor, first);
    bool hasDimensions = false; // a point then only says to which side they go
    for (;;) {
        Answer const other = co_await editor.point(
            Prompt(L"Specify other corner point or").keywords(L"Area Dimensions Rotation").base(first));
        if (other.isKeyword(L"Area")) {
            co_await drawByArea(editor, rectangle);
            co_return;
        }
        if (other.isKeyword(L"Rotation")) {
            co_await askRotation(editor, first);
        } else if (other.isKeyword()) {
            co_await askDimensions(editor);
            hasDimensions = true;
        } else {
            OdGeVector2d const way = rectangle.wayTo(other.point);
            RectangleModes const& modes = modesOf(editor);
            OdGeVector2d const turnedSides(std::copysign(modes.length, way.x), std::copysign(modes.width, way.y));
            rectangle.draw(hasDimensions ? turnedSides : way);
            co_return;
        }
    }
}

constexpr CommandDef s_commands[] = {{L"RECTANG", L"REC RECTANGLE", kPlain, &rectangCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
