#include "host/app/commands/readable_mirror.h"

#include "host/db/entities/od_db_attribute_base.h"
#include "host/db/entities/od_db_transform.h"

#include <utility>

namespace ca {

namespace {

using Horizontal = OdDbTextHorizontalMode;
using Vertical = OdDbTextVerticalMode;

constexpr std::pair<Horizontal, Horizontal> kSides[] = {{Horizontal::kLeft, Horizontal::kRight},
                                                        {Horizontal::kRight, Horizontal::kLeft}};
constexpr std::pair<Vertical, Vertical> kHeights[] = {{Vertical::kTop, Vertical::kBottom},
                                                      {Vertical::kBottom, Vertical::kTop}};

/// The other one of a pair; what has no counterpart stays.
template <class Mode, std::size_t N>
Mode opposite(Mode mode, std::pair<Mode, Mode> const (&pairs)[N])
{
    for (auto const& [from, to] : pairs)
        if (mode == from)
            return to;
    return mode;
}

bool runsBetweenPoints(OdDbText const& text)
{
    return text.horizontalMode() == Horizontal::kAligned || text.horizontalMode() == Horizontal::kFit;
}

OdGePoint3d anchor(OdDbText const& text)
{
    return text.isDefaultAlignment() ? text.position() : text.alignmentPoint();
}

void setAnchor(OdDbText& text, OdGePoint3d const& point)
{
    if (text.isDefaultAlignment())
        text.setPosition(point);
    else
        text.setAlignmentPoint(point);
}

/// The direction in which the strokes of the text stand up.
OdGeVector3d upward(OdDbText const& text)
{
    double const angle = text.rotation();
    return odDbPlaneToWorld(text.normal()) * OdGeVector3d(-std::sin(angle), std::cos(angle), 0);
}

/// Letters that run to the other side again.
void unmirrorInX(OdDbText& text)
{
    OdGePoint3d const at = anchor(text);
    text.mirrorInX(!text.isMirroredInX());
    text.setHorizontalMode(opposite(text.horizontalMode(), kSides));
    setAnchor(text, at);
}

/// Letters that stand the right way up again. The baseline has no counterpart above the letters, so texts on it
/// move by their height.
void unmirrorInY(OdDbText& text)
{
    bool const isOnBaseline =
        text.verticalMode() == Vertical::kBaseline && text.horizontalMode() != Horizontal::kMiddle;
    double const towards = text.isMirroredInY() ? -text.height() : text.height();
    OdGeVector3d const shift = isOnBaseline ? upward(text) * towards : OdGeVector3d();
    OdGePoint3d const at = anchor(text) + shift;
    OdGePoint3d const start = text.position() + shift;
    text.mirrorInY(!text.isMirroredInY());
    text.setVerticalMode(opposite(text.verticalMode(), kHeights));
    if (runsBetweenPoints(text))
        text.setPosition(start);
    setAnchor(text, at);
}

/// Letters that run from the other point.
void exchangePoints(OdDbText& text)
{
    OdGePoint3d const start = text.position();
    OdGePoint3d const end = text.alignmentPoint();
    text.mirrorInY(!text.isMirroredInY());
    text.setPosition(end);
    text.setAlignmentPoint(start);
    text.setRotation(text.rotation() + OdaPI);
}

/// A text and how it stood before the transformation.
class WatchedText
{
public:
    WatchedText(OdDbEntityPtr entity, OdDbText& text)
        : m_entity(std::move(entity)),
          m_text(text),
          m_inX(text.isMirroredInX()),
          m_inY(text.isMirroredInY()),
          m_run(text.alignmentPoint() - text.position())
    {
    }

    void unmirror() const
    {
        if (m_text.isMirroredInX() != m_inX)
            unmirrorInX(m_text);
        if (m_text.isMirroredInY() == m_inY)
            return;
        // A text between two points runs where they lie, which may be against its old direction.
        OdGeVector3d const run = m_text.alignmentPoint() - m_text.position();
        if (runsBetweenPoints(m_text) && run.dotProduct(m_run) < 0)
            exchangePoints(m_text);
        else
            unmirrorInY(m_text);
    }

private:
    OdDbEntityPtr m_entity; ///< keeps the text alive
    OdDbText& m_text;
    bool m_inX, m_inY;
    OdGeVector3d m_run;
};

/// A multiline text, of its own or of an attribute, and how it stood before the transformation.
class WatchedMText
{
public:
    WatchedMText(OdDbEntityPtr entity, OdDbMText const& text)
        : m_entity(std::move(entity)), m_direction(text.direction()), m_normal(text.normal())
    {
    }

    void unmirror(OdGeMatrix3d const& transformation) const
    {
        OdGeVector3d const carried = transformation * m_normal;
        if (auto* const text = odCast<OdDbMText>(m_entity.get())) {
            turnFace(*text, carried);
            return;
        }
        auto& attribute = static_cast<OdDbAttributeBase&>(*m_entity);
        OdDbMTextPtr const text = attribute.getMTextAttribute();
        turnFace(*text, carried);
        attribute.setMTextAttribute(text);
    }

private:
    void turnFace(OdDbMText& text, OdGeVector3d const& carriedNormal) const
    {
        bool const isSeenFromBehind = text.normal().dotProduct(carriedNormal) < 0;
        if (isSeenFromBehind)
            text.turnFace(text.direction().dotProduct(m_direction) < 0);
    }

    OdDbEntityPtr m_entity;
    OdGeVector3d m_direction, m_normal;
};

struct WatchedTexts
{
    std::vector<WatchedText> lines;
    std::vector<WatchedMText> blocks;

    void watch(OdDbEntityPtr const& entity)
    {
        if (auto* const text = odCast<OdDbText>(entity.get()))
            lines.emplace_back(entity, *text);
        if (auto const* const text = odCast<OdDbMText>(entity.get()))
            blocks.emplace_back(entity, *text);
        auto const* const attribute = odCast<OdDbAttributeBase>(entity.get());
        if (OdDbMTextPtr const text = attribute ? attribute->getMTextAttribute() : OdDbMTextPtr())
            blocks.emplace_back(entity, *text);
    }
};

} // namespace

OdResult mirrorReadably(OdDbEntity& entity, OdGeMatrix3d const& transformation)
{
    WatchedTexts texts;
    texts.watch(OdDbEntityPtr(&entity));
    for (auto it = entity.partIterator(); !it.done(); it.step())
        texts.watch(it.entity(OdDb::kForWrite));
    OdResult const result = entity.transformBy(transformation);
    if (result != eOk)
        return result;
    for (WatchedText const& each : texts.lines)
        each.unmirror();
    for (WatchedMText const& each : texts.blocks)
        each.unmirror(transformation);
    return eOk;
}

} // namespace ca
