// NEW, OPEN, SAVE, SAVEAS and CLOSE.
#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/dxf/dxf_file.h"
#include "host/ut/ut_file.h"

namespace ca {

namespace {

[[noreturn]] void reject()
{
    throw AnswerRejected(OdString()); // the application has said why
}

Task<> newCommand(Editor& editor)
{
    Answer const name =
        co_await editor.text(Prompt(L"Enter template file name or [. (for none)]").defaultText(L"none"));
    bool const isBuiltIn = name.isNone() || name.text == L"." || name.text.isEmpty();
    if (!app()->openFile(isBuiltIn ? nullptr : name.text.c_str(), false, 1))
        reject();
}

Task<> openCommand(Editor& editor)
{
    Answer const name = co_await editor.text(Prompt(L"Enter name of drawing to open"));
    if (name.text.isEmpty())
        throw AnswerRejected(L"A file name is required.");
    if (!app()->openFile(name.text.c_str()))
        reject();
}

/// Asks before another file is replaced.
Task<bool> mayWrite(Editor& editor, OdString path)
{
    if (!ut::fileExists(path) || path == editor.doc().fileName())
        co_return true;
    Answer const answer = co_await editor.keyword(
        Prompt(L"A file of this name exists. Replace it?").keywords(L"Yes No").defaultText(L"No"));
    co_return answer.isKeyword(L"Yes");
}

/// The full path to save under, Enter takes the present name; empty when the user would not replace a file.
Task<OdString> askPath(Editor& editor)
{
    OdString const present = editor.doc().fileName();
    Prompt prompt(L"Save drawing as");
    if (!present.isEmpty())
        prompt.defaultText(present);
    Answer const name = co_await editor.text(prompt);
    OdString const path = name.isNone() ? present : name.text;
    if (path.isEmpty())
        throw AnswerRejected(L"A file name is required.");
    bool const isAgreed = co_await mayWrite(editor, CaApp::fullPath(path));
    co_return isAgreed ? CaApp::fullPath(path) : OdString();
}

void saveDocument(CaDoc& document, OdString const& path)
{
    if (!document.saveAs(path, dxf::kCurrentFormatCode))
        reject();
}

Task<> saveAsCommand(Editor& editor)
{
    OdString const path = co_await askPath(editor);
    if (!path.isEmpty())
        saveDocument(editor.doc(), path);
}

/// Under another name, SAVE writes a copy and the document keeps its own.
Task<> saveCommand(Editor& editor)
{
    OdString const path = co_await askPath(editor);
    OdString const present = editor.doc().fileName();
    if (path.isEmpty())
        co_return;
    CaDoc const* const sameFile = app()->findDocument(path);
    if (present.isEmpty() || sameFile == &editor.doc())
        saveDocument(editor.doc(), present.isEmpty() ? path : present);
    else if (sameFile)
        throw AnswerRejected(odFormat(L"%ls is open as another document.", path.c_str()));
    else
        editor.doc().writeCopy(path);
}

Task<> closeCommand(Editor& editor)
{
    CaDoc& document = editor.doc();
    if (document.isModified()) {
        Answer const answer = co_await editor.keyword(
            Prompt(L"Save changes to " + document.title() + L"?").keywords(L"Yes No").defaultText(L"Yes"));
        if (!answer.isKeyword(L"No")) {
            OdString path = document.fileName();
            if (path.isEmpty() || document.isReadOnly())
                path = co_await askPath(editor);
            if (path.isEmpty())
                co_return; // not saved, so not closed either
            saveDocument(document, path);
        }
    }
    document.close();
}

constexpr CommandDef s_commands[] = {
    {L"NEW", L"", kNoUndoRecord | kNoDocument | kLiteralStrings, &newCommand},
    {L"OPEN", L"", kNoUndoRecord | kNoDocument | kLiteralStrings, &openCommand},
    {L"SAVE", L"", kNoUndoRecord | kLiteralStrings, &saveCommand},
    {L"SAVEAS", L"", kNoUndoRecord | kLiteralStrings, &saveAsCommand},
    {L"CLOSE", L"", kNoUndoRecord, &closeCommand},
};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
