#pragma once

#include "host/app/command_task.h"
#include "host/app/prompt.h"
#include "host/db/od_db_entity.h"

class OdDbDatabase;

namespace ca {

class CaDoc;
class CommandProcessor;

/// A command refuses an answer that its prompt took: the text goes to the command line, the command is cancelled.
class AnswerRejected : public OdError
{
public:
    explicit AnswerRejected(OdString const& reason) : OdError(eInvalidInput, reason) {}
};

/// A question on its way to be answered; what `co_await editor.point(...)` waits for.
class PendingPrompt
{
public:
    PendingPrompt(CommandProcessor& processor, EAnswerKind kind, Prompt prompt)
        : m_processor(processor), m_kind(kind), m_prompt(std::move(prompt))
    {
    }
    PendingPrompt(PendingPrompt const&) = delete;
    PendingPrompt& operator=(PendingPrompt const&) = delete;

    EAnswerKind kind() const { return m_kind; }
    Prompt const& prompt() const { return m_prompt; }
    void setAnswer(Answer answer) { m_answer = std::move(answer); }
    std::coroutine_handle<> asker() const { return m_asker; }

    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> asker);
    Answer await_resume() { return std::move(m_answer); }

private:
    CommandProcessor& m_processor;
    EAnswerKind m_kind;
    Prompt m_prompt;
    Answer m_answer;
    std::coroutine_handle<> m_asker;
};

/// What a command works with: its document, questions to the user, messages.
class Editor
{
public:
    Editor(CommandProcessor& processor, CaDoc* document) : m_processor(processor), m_document(document) {}

    /// @name Questions. An answer that the prompt cannot take cancels the command
    /// @{
    PendingPrompt point(Prompt prompt) { return ask(EAnswerKind::kPoint, std::move(prompt)); }
    /// A number, or the distance of a point from the base point of the prompt.
    PendingPrompt distance(Prompt prompt) { return ask(EAnswerKind::kDistance, std::move(prompt)); }
    /// Degrees, or the direction from the base point to a point; the answer is in radians.
    PendingPrompt angle(Prompt prompt) { return ask(EAnswerKind::kAngle, std::move(prompt)); }
    PendingPrompt real(Prompt prompt) { return ask(EAnswerKind::kReal, std::move(prompt)); }
    PendingPrompt integer(Prompt prompt) { return ask(EAnswerKind::kInteger, std::move(prompt)); }
    PendingPrompt keyword(Prompt prompt) { return ask(EAnswerKind::kKeyword, std::move(prompt)); }
    PendingPrompt text(Prompt prompt) { return ask(EAnswerKind::kText, std::move(prompt)); }
    /// One answer of an object selection; commands call selectObjects (select_objects.h) instead.
    PendingPrompt selection(Prompt prompt) { return ask(EAnswerKind::kSelection, std::move(prompt)); }
    /// @}

    void message(OdString const& text);

    /// Throw OdError(eNoDocument) for a command that runs without a document.
    CaDoc& doc() const;
    OdDbDatabase& db() const;

    /// Appends a new entity with the current properties to the active space; returns its id.
    OdDbObjectId append(OdSmartPtr<OdDbEntity> const& entity);
    /// From the user coordinate system, in which users think, to world coordinates, in which answers come.
    OdGeMatrix3d ucsToWorld() const;
    /// Direction of the Z axis of the user coordinate system: the normal of new flat entities.
    OdGeVector3d ucsNormal() const;
    /// Last point given to any command of the document.
    OdGePoint3d lastPoint() const;
    void setLastPoint(OdGePoint3d const& point);

private:
    PendingPrompt ask(EAnswerKind kind, Prompt prompt)
    {
        return PendingPrompt(m_processor, kind, std::move(prompt));
    }

    CommandProcessor& m_processor;
    CaDoc* m_document;
};

} // namespace ca
