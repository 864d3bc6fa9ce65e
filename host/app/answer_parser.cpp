#include "host/app/answer_parser.h"

#include "host/app/keywords.h"
#include "host/ut/ut_number.h"

#include <cmath>

namespace ca {

namespace {

/// What the command line says when an answer is of the wrong kind, by kind of question.
wchar_t const* requirement(EAnswerKind kind, bool hasKeywords)
{
    switch (kind) {
    case EAnswerKind::kPoint: return hasKeywords ? L"Point or option keyword required." : L"Invalid point.";
    case EAnswerKind::kDistance:
        return hasKeywords ? L"Requires numeric distance, second point, or option keyword."
                           : L"Requires numeric distance or two points.";
    case EAnswerKind::kAngle:
        return hasKeywords ? L"Requires valid numeric angle, second point, or option keyword."
                           : L"Requires valid numeric angle or second point.";
    case EAnswerKind::kReal:
        return hasKeywords ? L"Requires numeric value or option keyword." : L"Requires numeric value.";
    case EAnswerKind::kInteger:
        return hasKeywords ? L"Requires an integer value or an option keyword." : L"Requires an integer value.";
    case EAnswerKind::kKeyword: return L"Invalid option keyword.";
    case EAnswerKind::kText: return L"Requires a text.";
    case EAnswerKind::kSelection: return L"Invalid selection.";
    }
    return L"";
}

Answer valueAnswer()
{
    Answer answer;
    answer.status = Answer::EStatus::kValue;
    return answer;
}

void setPoint(Answer& answer, OdGePoint3d const& point)
{
    answer.point = point;
    answer.hasPoint = true;
}

class Parser
{
public:
    Parser(EAnswerKind kind, Prompt const& prompt, Input const& input, CoordinateFrame const& frame)
        : m_kind(kind), m_prompt(prompt), m_input(input), m_frame(frame)
    {
    }

    ParsedAnswer parse()
    {
        if (m_input.isEnter())
            return parseEnter();
        if (m_kind != EAnswerKind::kText) {
            if (std::optional<Answer> keyword = parseKeyword())
                return {std::move(keyword), {}};
        }
        if (m_prompt.takesOtherText() &&
            !(m_kind == EAnswerKind::kPoint ? point().has_value() : number().has_value()))
            return parseText();
        switch (m_kind) {
        case EAnswerKind::kPoint: return parsePointAnswer();
        case EAnswerKind::kDistance: return parseDistance();
        case EAnswerKind::kAngle: return parseAngle();
        case EAnswerKind::kReal: return withinLimits(number());
        case EAnswerKind::kInteger: return parseInteger();
        case EAnswerKind::kText: return parseText();
        case EAnswerKind::kSelection: return parseSelection();
        case EAnswerKind::kKeyword: break;
        }
        return refused();
    }

private:
    ParsedAnswer refused() const
    {
        return {std::nullopt, requirement(m_kind, !m_prompt.shownKeywords().isEmpty())};
    }

    ParsedAnswer parseEnter() const
    {
        if (m_prompt.takesEnter())
            return {Answer(), {}};
        if (m_kind == EAnswerKind::kText)
            return {valueAnswer(), {}};
        return refused();
    }

    std::optional<Answer> parseKeyword() const
    {
        OdString const* const text = m_input.text();
        if (!text)
            return std::nullopt;
        for (OdString const* list : {&m_prompt.shownKeywords(), &m_prompt.allHiddenKeywords()}) {
            OdString const keyword = matchKeyword(*list, *text);
            if (keyword.isEmpty())
                continue;
            Answer answer;
            answer.status = Answer::EStatus::kKeyword;
            answer.text = keyword;
            return answer;
        }
        return std::nullopt;
    }

    std::optional<OdGePoint3d> point() const
    {
        if (auto const* given = std::get_if<OdGePoint3d>(&m_input.value))
            return m_frame.ucsToWorld * *given;
        OdString const* const text = m_input.text();
        return text ? parsePoint(*text, m_frame) : std::nullopt;
    }

    std::optional<double> number() const
    {
        std::optional<double> value;
        if (auto const* real = std::get_if<double>(&m_input.value))
            value = *real;
        else if (auto const* integer = std::get_if<std::int64_t>(&m_input.value))
            value = static_cast<double>(*integer);
        else if (double parsed = 0; m_input.text() && ut::parseReal(m_input.text()->str(), parsed))
            value = parsed;
        return value && std::isfinite(*value) ? value : std::nullopt;
    }

    ParsedAnswer withinLimits(std::optional<double> value) const
    {
        if (!value)
            return refused();
        if (OdString const refusal = m_prompt.refusal(*value); !refusal.isEmpty())
            return {std::nullopt, refusal};
        Answer answer = valueAnswer();
        answer.real = *value;
        return {answer, {}};
    }

    bool isFirstOfTwoPoints() const { return !m_prompt.basePoint() && m_prompt.takesTwoPoints(); }

    ParsedAnswer parsePointAnswer() const
    {
        std::optional<OdGePoint3d> const given = point();
        if (!given)
            return refused();
        Answer answer = valueAnswer();
        setPoint(answer, *given);
        return {answer, {}};
    }

    ParsedAnswer parseDistance() const
    {
        std::optional<double> value = number();
        if (!value && isFirstOfTwoPoints())
            return parsePointAnswer();
        std::optional<OdGePoint3d> const given = value || !m_prompt.basePoint() ? std::nullopt : point();
        if (given)
            value = m_prompt.basePoint()->distanceTo(*given);
        return withPoint(withinLimits(value), given);
    }

    ParsedAnswer parseAngle() const
    {
        std::optional<double> value = number();
        if (!value && isFirstOfTwoPoints())
            return parsePointAnswer();
        std::optional<OdGePoint3d> const given = value || !m_prompt.basePoint() ? std::nullopt : point();
        if (value)
            *value *= OdaPI / 180.0;
        else if (given)
            value = angleTo(*given);
        return withPoint(withinLimits(value), given);
    }

    /// Direction from the base point in the plane of the user coordinate system.
    double angleTo(OdGePoint3d const& given) const
    {
        OdGeVector3d const direction = m_frame.ucsToWorld.inverse() * (given - *m_prompt.basePoint());
        return direction.convert2d().angle();
    }

    static ParsedAnswer withPoint(ParsedAnswer result, std::optional<OdGePoint3d> const& given)
    {
        if (result.answer && given)
            setPoint(*result.answer, *given);
        return result;
    }

    ParsedAnswer parseInteger() const
    {
        std::optional<double> const value = number();
        if (!value || *value != std::floor(*value))
            return refused();
        ParsedAnswer result = withinLimits(value);
        if (result.answer)
            result.answer->integer = static_cast<std::int64_t>(*value);
        return result;
    }

    ParsedAnswer parseText() const
    {
        Answer answer = valueAnswer();
        answer.text = m_input.shown();
        bool const isTextual = !std::holds_alternative<OdDbSelectionSetPtr>(m_input.value) &&
                               !std::holds_alternative<OdDbObjectId>(m_input.value);
        return isTextual ? ParsedAnswer{answer, {}} : refused();
    }

    ParsedAnswer parseSelection() const
    {
        Answer answer = valueAnswer();
        if (auto const* set = std::get_if<OdDbSelectionSetPtr>(&m_input.value))
            answer.selection = *set;
        else if (auto const* entity = std::get_if<OdDbObjectId>(&m_input.value))
            answer.entity = *entity;
        else if (std::optional<OdGePoint3d> const given = point())
            setPoint(answer, *given);
        else
            return refused();
        return {answer, {}};
    }

    EAnswerKind m_kind;
    Prompt const& m_prompt;
    Input const& m_input;
    CoordinateFrame const& m_frame;
};

} // namespace

ParsedAnswer parseAnswer(EAnswerKind kind, Prompt const& prompt, Input const& input, CoordinateFrame const& frame)
{
    return Parser(kind, prompt, input, frame).parse();
}

} // namespace ca
