// AUDIT: what the drawing is made of, what opening it mended, and what is wrong in it.
#include "host/app/ca_doc.h"
#include "host/app/command_registry.h"
#include "host/app/editor.h"
#include "host/app/file_notes.h"
#include "host/db/audit/od_db_audit.h"
#include "host/dxf/dxf_drawing_summary.h"

namespace ca {

namespace {

constexpr std::size_t kShownLines = 100; // of one kind; the command line keeps only the latest lines

void showMore(Editor& editor, std::size_t count, wchar_t const* what)
{
    if (count > 0)
        editor.message(odFormat(L"%lld more %ls.", static_cast<long long>(count), what));
}

void showSummary(Editor& editor)
{
    for (dxf::SummaryRow const& row : dxf::rowsOf(dxf::summaryOf(editor.db(), editor.doc().openReport())))
        editor.message(OdString(row.label) + L": " + row.text);
}

void showOpening(Editor& editor)
{
    dxf::ReadReport const& report = editor.doc().openReport();
    std::size_t const shown = std::min(report.notes.size(), kShownLines);
    for (std::size_t i = 0; i < shown; ++i)
        editor.message(noteText(editor.doc().openedFrom(), report, report.notes[i]));
    showMore(editor, report.notes.size() - shown + report.moreNotes, L"notes of opening");
}

void showFindings(Editor& editor, OdDbAuditInfo const& info)
{
    std::size_t const shown = std::min(info.findings().size(), kShownLines);
    for (std::size_t i = 0; i < shown; ++i) {
        OdDbAuditInfo::Finding const& finding = info.findings()[i];
        editor.message(finding.shown() + odFormat(L" (handle %ls)", finding.handle.ascii().c_str()));
    }
    showMore(editor, info.findings().size() - shown, L"errors");
}

Task<> auditCommand(Editor& editor)
{
    Answer const answer =
        co_await editor.keyword(Prompt(L"Fix any errors detected?").keywords(L"Yes No").defaultText(L"N"));
    OdDbAuditInfo info(answer.isKeyword(L"Yes"));
    showSummary(editor);
    showOpening(editor);
    odDbAudit(editor.db(), info);
    showFindings(editor, info);
    editor.message(odFormat(L"Total errors found %lld fixed %lld", static_cast<long long>(info.errorsFound()),
                            static_cast<long long>(info.errorsFixed())));
}

constexpr CommandDef s_commands[] = {{L"AUDIT", L"", kPlain, &auditCommand}};
CommandRegistrar const s_register(s_commands);

} // namespace

} // namespace ca
