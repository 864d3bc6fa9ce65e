#include "host/app/commands/ellipse_arc.h"

namespace ca {

namespace {

/// The ends are asked for one after the other; whether as angles or as parameters changes on demand.
class ArcEnds
{
public:
    ArcEnds(Editor& editor, OdGeEllipArc3d const& whole)
        : m_editor(editor),
          m_whole(whole),
          m_axisAngle((editor.ucsToWorld().inverse() * whole.majorAxis()).convert2d().angle())
    {
    }

    bool asksParameters() const { return m_asksParameters; }
    void switchMode() { m_asksParameters = !m_asksParameters; }
    /// What is asked for, and the name of the other way.
    OdString asked() const { return m_asksParameters ? L"parameter" : L"angle"; }
    OdString otherKeyword() const { return m_asksParameters ? L"Angle" : L"Parameter"; }

    /// Points give directions of the plane, numbers count from the axis.
    double paramOf(Answer const& answer) const
    {
        double const angle = answer.hasPoint ? odgeFoldAngle(answer.real - m_axisAngle) : answer.real;
        return m_asksParameters ? angle : m_whole.paramOfAngle(angle);
    }
    double paramBehind(double start, double includedAngle) const
    {
        return m_whole.paramOfAngle(m_whole.angleOfParam(start) + includedAngle);
    }

    Task<double> askStart()
    {
        for (;;) {
            Answer const answer = co_await m_editor.angle(
                Prompt(L"Specify start " + asked() + L" or").keywords(otherKeyword()).base(m_whole.center()));
            if (answer.isValue())
                co_return paramOf(answer);
            switchMode();
        }
    }

    /// The other end; before the start where the included angle is negative.
    Task<double> askEnd(double start)
    {
        for (;;) {
            Answer const answer = co_await m_editor.angle(
                Prompt(L"Specify end " + asked() + L" or [" + otherKeyword() + L"/Included angle]")
                    .hiddenKeywords(otherKeyword() + L" Included")
                    .base(m_whole.center()));
            if (answer.isValue())
                co_return start + odgeSweep(start, paramOf(answer));
            if (answer.isKeyword(L"Included"))
                break;
            switchMode();
        }
        Answer const included =
            co_await m_editor.angle(Prompt(L"Specify included angle for arc").defaultText(L"180").notZero());
        double const angle = included.isNone() ? OdaPI : included.real;
        if (std::abs(angle) >= Oda2PI)
            co_return start + Oda2PI;
        co_return paramBehind(start, angle);
    }

private:
    Editor& m_editor;
    OdGeEllipArc3d const& m_whole;
    double m_axisAngle; ///< as users count angles
    bool m_asksParameters = false;
};

} // namespace

Task<OdGeEllipArc3d> askEllipseArc(Editor& editor, OdGeEllipArc3d whole)
{
    ArcEnds ends(editor, whole);
    double const start = co_await ends.askStart();
    double const end = co_await ends.askEnd(start);
    co_return OdGeEllipArc3d(whole.center(), whole.majorAxis(), whole.minorAxis(), std::min(start, end),
                             std::max(start, end));
}

} // namespace ca
