#pragma once

#include "host/db/od_db_selection_set.h"
#include "host/geom/od_ge_3d.h"

#include <optional>

namespace ca {

/// A question to the user. Built in one expression:
/// `Prompt(L"Specify next point").keywords(L"Close Undo").base(start).allowEnter()`.
class Prompt
{
public:
    explicit Prompt(OdString text) : m_text(std::move(text)) {}

    /// Options that the prompt shows and takes; see keywords.h for their spelling.
    Prompt& keywords(OdString const& list);
    /// Options that are taken but not shown.
    Prompt& hiddenKeywords(OdString const& list);
    /// Text in angle brackets; Enter is then an answer.
    Prompt& defaultText(OdString const& text);
    Prompt& allowEnter();
    /// Point from which distances and angles are measured when a point answers.
    Prompt& base(OdGePoint3d const& point);
    /// Where a distance or an angle has no base point: a point answers too, as the first of two; two_points.h asks
    /// for the other one.
    Prompt& twoPoints();
    /// Where a point or a number is asked for: other text answers too, for the command to understand.
    Prompt& orText();
    /// Numbers below this are refused; with `exclusive` also the limit itself.
    Prompt& atLeast(double limit, bool exclusive = false);
    Prompt& atMost(double limit);
    Prompt& notZero();

    /// The whole line: text, options, default, colon.
    OdString shown() const;
    OdString const& shownKeywords() const { return m_keywords; }
    OdString const& allHiddenKeywords() const { return m_hidden; }
    bool takesEnter() const { return m_takesEnter; }
    std::optional<OdGePoint3d> const& basePoint() const { return m_base; }
    bool takesTwoPoints() const { return m_takesTwoPoints; }
    bool takesOtherText() const { return m_takesOtherText; }
    /// Empty when the number is within the limits, else what to tell the user.
    OdString refusal(double number) const;

private:
    OdString m_text;
    OdString m_keywords;
    OdString m_hidden;
    OdString m_default;
    bool m_takesEnter = false;
    bool m_notZero = false;
    bool m_takesTwoPoints = false;
    bool m_takesOtherText = false;
    std::optional<OdGePoint3d> m_base;
    std::optional<double> m_least;
    bool m_leastIsExclusive = false;
    std::optional<double> m_most;
};

/// What a prompt can ask for.
enum class EAnswerKind
{
    kPoint,
    kDistance,
    kAngle,
    kReal,
    kInteger,
    kKeyword,
    kText,
    kSelection
};

/// The answer to a prompt: a value, one of the keywords, or nothing (Enter).
struct Answer
{
    enum class EStatus
    {
        kValue,
        kKeyword,
        kNone
    };

    EStatus status = EStatus::kNone;
    OdGePoint3d point;     ///< in world coordinates
    bool hasPoint = false; ///< a point answered, also where a distance or an angle was asked for
    double real = 0;       ///< distance, angle in radians, number
    std::int64_t integer = 0;
    OdString text;                 ///< the text, or the keyword as the prompt spells it
    OdDbSelectionSetPtr selection; ///< a named selection set
    OdDbObjectId entity;           ///< an entity given by name

    bool isValue() const { return status == EStatus::kValue; }
    bool isNone() const { return status == EStatus::kNone; }
    bool isKeyword() const { return status == EStatus::kKeyword; }
    bool isKeyword(wchar_t const* keyword) const { return isKeyword() && text == keyword; }
};

} // namespace ca
