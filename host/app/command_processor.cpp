#include "host/app/command_processor.h"

#include "host/app/answer_parser.h"
#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/sys_var.h"
#include "host/db/oa_space.h"
#include "host/db/od_db_database.h"

namespace ca {

namespace {

CommandLine& commandLine()
{
    return app()->commandLine();
}

OdString unknownCommandText(OdString const& typed)
{
    OdString text = odFormat(L"Unknown command \"%ls\".", typed.c_str());
    OdString const withoutDialog = L"-" + parseCommandName(typed).name;
    if (commandRegistry::find(withoutDialog))
        text += odFormat(L" Its form without a dialog is \"%ls\".", withoutDialog.c_str());
    return text;
}

/// Sets a flag for the time of a scope.
class ScopedFlag
{
public:
    explicit ScopedFlag(bool& flag) : m_flag(flag) { m_flag = true; }
    ~ScopedFlag() { m_flag = false; }
    ScopedFlag(ScopedFlag const&) = delete;
    ScopedFlag& operator=(ScopedFlag const&) = delete;

private:
    bool& m_flag;
};

} // namespace

CommandProcessor::~CommandProcessor()
{
    while (!m_frames.empty())
        m_frames.pop_back();
}

CommandProcessor& CommandProcessor::get()
{
    return app()->commandProcessor();
}

bool CommandProcessor::feed(std::vector<Input> answers)
{
    if (m_isPumping) {
        commandLine().error(L"A command cannot give answers to the command line while it runs.");
        return false;
    }
    ScopedFlag const pumping(m_isPumping);
    m_queue.insert(m_queue.end(), std::make_move_iterator(answers.begin()),
                   std::make_move_iterator(answers.end()));
    try {
        pump();
        return true;
    } catch (std::exception const& error) {
        m_queue.clear();
        commandLine().error(OdString::fromUtf8(error.what()));
        while (!m_frames.empty())
            finishTop();
        return false;
    }
}

void CommandProcessor::pump()
{
    while (!m_queue.empty()) {
        Input const input = std::move(m_queue.front());
        m_queue.pop_front();
        if (m_frames.empty())
            beginCommand(input);
        else if (!beginTransparent(input))
            answer(input);
    }
}

void CommandProcessor::beginCommand(Input const& input)
{
    if (input.isEnter())
        return;
    OdString const* const typed = input.text();
    CommandDef const* const command = typed ? commandRegistry::find(*typed) : nullptr;
    if (command)
        begin(*command, curDoc());
    else if (typed && SysVar::find(parseCommandName(*typed).name))
        beginSystemVariable(parseCommandName(*typed).name);
    else
        throw OdError(eInvalidInput, unknownCommandText(input.shown()));
}

/// The name of a system variable, typed as a command, asks for its value.
void CommandProcessor::beginSystemVariable(OdString const& name)
{
    m_queue.push_front(Input::ofText(name));
    begin(*commandRegistry::find(L"SETVAR"), curDoc());
}

bool CommandProcessor::beginTransparent(Input const& input)
{
    OdString const* const typed = input.text();
    if (!typed || m_frames.back()->pending->kind() == EAnswerKind::kText)
        return false;
    TypedCommandName const name = parseCommandName(*typed);
    CommandDef const* const command = name.isTransparent ? commandRegistry::find(*typed) : nullptr;
    bool const isVariable = name.isTransparent && !command && SysVar::find(name.name);
    if (!isVariable && (!command || !(command->flags & kTransparent)))
        return false;
    if (isVariable)
        beginSystemVariable(name.name);
    else
        begin(*command, m_frames.back()->document);
    return true;
}

void CommandProcessor::begin(CommandDef const& command, CaDoc* document)
{
    if (!document && !(command.flags & kNoDocument))
        throw OdError(eNoDocument);
    auto frame = std::make_unique<Frame>();
    frame->command = &command;
    frame->document = document;
    frame->editor = std::make_unique<Editor>(*this, document);
    frame->task = command.run(*frame->editor);
    bool const isOutermost = m_frames.empty();
    if (isOutermost && document && !(command.flags & kNoUndoRecord))
        frame->hasUndoRecord = document->beginUndoRecord(command.name, (command.flags & kViewOnly) != 0);
    m_frames.push_back(std::move(frame));
    m_frames.back()->task.start();
    afterStep();
}

void CommandProcessor::wait(PendingPrompt& prompt)
{
    m_frames.back()->pending = &prompt;
    commandLine().prompt(prompt.prompt().shown());
}

CoordinateFrame CommandProcessor::coordinateFrame(CaDoc const* document) const
{
    if (!document)
        return {};
    OdDbDatabase const* const db = document->database();
    return {oa::ucsToWorld(db), document->lastPoint(), db->header().real("ELEVATION")};
}

void CommandProcessor::answer(Input const& input)
{
    Frame& frame = *m_frames.back();
    PendingPrompt& pending = *frame.pending;
    commandLine().echo(input.shown());
    ParsedAnswer parsed = parseAnswer(pending.kind(), pending.prompt(), input, coordinateFrame(frame.document));
    if (!parsed.answer)
        throw AnswerRejected(parsed.refusal);
    if (pending.kind() == EAnswerKind::kPoint && parsed.answer->isValue())
        frame.document->setLastPoint(parsed.answer->point);
    pending.setAnswer(std::move(*parsed.answer));
    frame.pending = nullptr;
    pending.asker().resume();
    afterStep();
}

/// The innermost command has run up to its next prompt or to its end.
void CommandProcessor::afterStep()
{
    while (!m_frames.empty() && m_frames.back()->task.done()) {
        Task<> task = std::exchange(m_frames.back()->task, Task<>());
        finishTop();
        task.result(); // throws what the command threw
        if (!m_frames.empty())
            commandLine().prompt(m_frames.back()->pending->prompt().shown());
    }
}

void CommandProcessor::finishTop()
{
    std::unique_ptr<Frame> const frame = std::move(m_frames.back());
    m_frames.pop_back();
    frame->task = Task<>();
    endUndoRecord(*frame);
    if (m_frames.empty())
        app()->commandsEnded();
}

void CommandProcessor::endUndoRecord(Frame& frame)
{
    if (frame.hasUndoRecord && app()->hasDocument(frame.document))
        frame.document->endUndoRecord();
}

void CommandProcessor::cancelAll()
{
    m_queue.clear();
    if (m_frames.empty() || m_isPumping)
        return;
    commandLine().echo(L"*Cancel*");
    while (!m_frames.empty())
        finishTop();
}

OdString CommandProcessor::activeNames() const
{
    OdString names;
    for (auto const& frame : m_frames)
        names += (names.isEmpty() ? OdString() : OdString(L"'")) + frame->command->name;
    return names;
}

void CommandProcessor::documentClosing(CaDoc const* document)
{
    // The command that closes its own document is the innermost and runs on; those that wait inside it go.
    std::size_t const kept = m_isPumping ? 1 : 0;
    while (m_frames.size() > kept && m_frames[m_frames.size() - 1 - kept]->document == document) {
        auto const position = m_frames.end() - 1 - static_cast<std::ptrdiff_t>(kept);
        (*position)->task = Task<>();
        m_frames.erase(position);
    }
    if (m_frames.empty())
        app()->commandsEnded();
}

void CommandProcessor::processIdle()
{
    while (!m_idleQueue.empty()) {
        std::function<void()> const function = std::move(m_idleQueue.front());
        m_idleQueue.pop_front();
        function();
    }
}

} // namespace ca
