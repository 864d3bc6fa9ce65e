#pragma once

#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/app/input.h"

#include <deque>
#include <functional>
#include <memory>

namespace ca {

struct CoordinateFrame;

/// Runs commands. Answers come in one queue, whoever gives them; a command that finds the queue empty stays
/// suspended with its prompt on the command line until the next answers come or it is cancelled. Commands may run
/// inside others (transparent ones); the innermost gets the answers.
class CommandProcessor
{
public:
    CommandProcessor() = default;
    CommandProcessor(CommandProcessor const&) = delete;
    CommandProcessor& operator=(CommandProcessor const&) = delete;
    ~CommandProcessor();

    static CommandProcessor& get();

    /// Gives answers to the waiting command, or, while none waits, begins with the name of one. Returns when all
    /// are used up or one was refused: true, or false with the reason on the command line, the command cancelled
    /// and the rest dropped. Surplus answers are the next commands. An empty text while no command waits is
    /// ignored.
    bool feed(std::vector<Input> answers);
    /// Cancels the waiting command and all that it runs inside.
    void cancelAll();

    bool isIdle() const { return m_frames.empty(); }
    /// The waiting command asks for a text, in which blanks are letters like others.
    bool waitsForText() const
    {
        return !m_frames.empty() && m_frames.back()->pending &&
               m_frames.back()->pending->kind() == EAnswerKind::kText;
    }
    /// Names of the running commands, the outermost first, joined by "'".
    OdString activeNames() const;

    /// Cancels the suspended commands of a document that goes.
    void documentClosing(CaDoc const* document);

    /// Gives code that waits for an idle moment its turn; queued functions run in order, also those that are
    /// queued meanwhile. An exception stops and reaches the caller; functions behind the one that threw stay
    /// queued.
    void processIdle();
    void queueForIdle(std::function<void()> function) { m_idleQueue.push_back(std::move(function)); }

    /// For PendingPrompt: the running command waits for this answer.
    void wait(PendingPrompt& prompt);

private:
    struct Frame
    {
        CommandDef const* command = nullptr;
        CaDoc* document = nullptr;
        std::unique_ptr<Editor> editor;
        Task<> task;
        PendingPrompt* pending = nullptr;
        bool hasUndoRecord = false;
    };

    void pump();
    void beginCommand(Input const& input);
    void begin(CommandDef const& command, CaDoc* document);
    void beginSystemVariable(OdString const& name);
    bool beginTransparent(Input const& input);
    void answer(Input const& input);
    void afterStep();
    void finishTop();
    void endUndoRecord(Frame& frame);
    CoordinateFrame coordinateFrame(CaDoc const* document) const;

    std::vector<std::unique_ptr<Frame>> m_frames;
    std::deque<Input> m_queue;
    std::deque<std::function<void()>> m_idleQueue;
    bool m_isPumping = false;
};

} // namespace ca
