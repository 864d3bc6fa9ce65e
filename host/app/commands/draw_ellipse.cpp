// ELLIPSE: by an axis and the length of the other one, about a center, as the picture of a circle on an isometric
// plane; whole or in part.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/commands/ellipse_arc.h"
#include "host/app/commands/new_entity.h"
#include "host/app/sys_var.h"
#include "host/db/entities/od_db_ellipse.h"

namespace ca {

namespace {

int variable(Editor& editor, wchar_t const* name)
{
    return std::get<int>(SysVar::find(name)->value(&editor.doc()));
}

/// Appends an ellipse whose axes come in any order of length.
void drawEllipse(Editor& editor, OdGeEllipArc3d ellipse)
{
    bool const isWhole = ellipse.isClosed();
    ellipse.orderAxes();
    double const ratio = std::min(1.0, ellipse.minorRadius() / ellipse.majorRadius());
    if (ratio < OdDbEllipse::kLeastRatio)
        throw AnswerRejected(L"The axes differ too much in length.");
    double const start = isWhole ? 0 : odgeFoldAngle(ellipse.startParam());
    double const sweep = isWhole ? Oda2PI : ellipse.endParam() - ellipse.startParam();
    editor.append(OdDbEllipsePtr(
        new OdDbEllipse(ellipse.center(), editor.ucsNormal(), ellipse.majorAxis(), ratio, start, start + sweep)));
}

/// The other axis, by its length or by the tilt that makes a circle about the first one look so.
Task<OdGeEllipArc3d> askOtherAxis(Editor& editor, OdGePoint3d center, OdGeVector3d axis)
{
    constexpr double kMostTilt = odgeToRadians(89.4);
    DrawingPlane const plane(editor, center);
    Answer const distance = co_await editor.distance(
        Prompt(L"Specify distance to other axis or").keywords(L"Rotation").base(center).atLeast(0, true));
    double length = distance.real;
    if (distance.hasPoint)
        length = plane.toPlane(distance.point).distanceTo(plane.toPlane(center));
    if (distance.isKeyword()) {
        Answer const tilt = co_await editor.angle(Prompt(L"Specify rotation around major axis").base(center));
        double const factor = std::abs(std::cos(tilt.real));
        if (factor < std::cos(kMostTilt))
            throw AnswerRejected(L"Requires an angle between 0 and 89.4 degrees.");
        length = axis.length() * factor;
    }
    if (OdGeVector2d(length, 0).isZeroLength())
        throw AnswerRejected(L"The ellipse would have no area.");
    co_return OdGeEllipArc3d(center, axis, plane.normal().crossProduct(axis.normal()) * length);
}

/// From the center to the end of an axis, within the plane of the ellipse.
OdGeVector3d axisTo(DrawingPlane const& plane, OdGePoint3d const& center, OdGePoint3d const& end)
{
    OdGeVector2d const axis = plane.toPlane(end) - plane.toPlane(center);
    if (axis.isZeroLength())
        throw AnswerRejected(L"The two points are the same.");
    return plane.toWorld(axis);
}

Task<OdGeEllipArc3d> ellipseOnAxis(Editor& editor, OdGePoint3d first)
{
    Answer const second = co_await editor.point(Prompt(L"Specify other endpoint of axis").base(first));
    DrawingPlane const plane(editor, first);
    OdGePoint3d const center = plane.toWorld(odgeMidPoint(plane.toPlane(first), plane.toPlane(second.point)));
    OdGeEllipArc3d const ellipse = co_await askOtherAxis(editor, center, axisTo(plane, center, first));
    co_return ellipse;
}

Task<OdGeEllipArc3d> ellipseAboutCenter(Editor& editor, OdString curve)
{
    Answer const center = co_await editor.point(Prompt(L"Specify center of " + curve));
    Answer const end = co_await editor.point(Prompt(L"Specify endpoint of axis").base(center.point));
    DrawingPlane const plane(editor, center.point);
    OdGeEllipArc3d const ellipse =
        co_await askOtherAxis(editor, center.point, axisTo(plane, center.point, end.point));
    co_return ellipse;
}

/// A circle on one of the three planes of the isometric grid; SNAPISOPAIR says which.
Task<OdGeEllipArc3d> isometricCircle(Editor& editor)
{
    Answer const center = co_await editor.point(Prompt(L"Specify center of isocircle"));
    Answer answer = co_await editor.distance(
        Prompt(L"Specify radius of isocircle or").keywords(L"Diameter").base(center.point).atLeast(0, true));
    double radius = answer.real;
    if (answer.isKeyword()) {
        answer =
            co_await editor.distance(Prompt(L"Specify diameter of isocircle").base(center.point).atLeast(0, true));
        radius = answer.real / 2;
    }
    // The long axis is square to the picture of the normal of the plane: left, top, right.
    constexpr double kMajorAngles[] = {120, 0, 60};
    double const lengthened = std::sqrt(1.5); // isometric axes are drawn in true length
    double const snapAngle = std::get<double>(SysVar::find(L"SNAPANG")->value(&editor.doc()));
    double const pairAngle = kMajorAngles[variable(editor, L"SNAPISOPAIR")];
    DrawingPlane const plane(editor, center.point);
    OdGeVector2d const major = plane.directionOf(odgeToRadians(snapAngle + pairAngle)) * (radius * lengthened);
    OdGeVector2d const minor = major.perpVector() / std::sqrt(3.0);
    co_return OdGeEllipArc3d(center.point, plane.toWorld(major), plane.toWorld(minor));
}

Task<> ellipseCommand(Editor& editor)
{
    OdString const ways = variable(editor, L"SNAPSTYL") != 0 ? L"Center Isocircle" : L"Center";
    Answer first = co_await editor.point(Prompt(L"Specify axis endpoint of ellipse or").keywords(L"Arc " + ways));
    bool const isArc = first.isKeyword(L"Arc");
    if (isArc)
        first = co_await editor.point(Prompt(L"Specify axis endpoint of elliptical arc or").keywords(ways));
    OdString const curve = isArc ? L"elliptical arc" : L"ellipse";
    OdGeEllipArc3d ellipse;
    if (first.isKeyword(L"Center"))
        ellipse = co_await ellipseAboutCenter(editor, curve);
    else if (first.isKeyword())
        ellipse = co_await isometricCircle(editor);
    else
        ellipse = co_await ellipseOnAxis(editor, first.point);
    if (isArc)
        ellipse = co_await askEllipseArc(editor, ellipse);
    drawEllipse(editor, ellipse);
}

constexpr CommandDef s_commands[] = {{L"ELLIPSE", L"EL", kPlain, &ellipseCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
