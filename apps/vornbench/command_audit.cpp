// Audits drawings one after the other; each is shown before the next is opened.
#include "apps/vornbench/commands.h"
#include "apps/vornbench/json_object.h"
#include "apps/vornbench/text_width.h"
#include "host/app/file_notes.h"
#include "host/db/audit/od_db_audit.h"
#include "host/dxf/dxf_drawing_summary.h"

#include <iostream>

namespace {

struct AuditedDrawing
{
    OdString path;
    dxf::ReadReport report;
    dxf::DrawingSummary summary;
    OdDbAuditInfo info;

    std::size_t numNotes() const { return report.notes.size() + report.moreNotes; }
    bool isFine() const { return numNotes() == 0 && info.errorsFound() == 0; }
};

/// Throws what opening the drawing throws.
AuditedDrawing audited(std::string const& path)
{
    AuditedDrawing drawing;
    drawing.path = OdString::fromUtf8(path);
    OdDbDatabasePtr const database = dxf::readFile(drawing.path, &drawing.report);
    drawing.summary = dxf::summaryOf(*database, drawing.report);
    odDbAudit(*database, drawing.info);
    return drawing;
}

/// How audits come out: for people or for other programs.
class AuditPrinter
{
public:
    virtual ~AuditPrinter() = default;
    virtual void drawing(AuditedDrawing const& drawing) = 0;
    virtual void unusable(std::string const& path, std::string const& reason) = 0;
    virtual void finish() {}
};

class PlainPrinter final : public AuditPrinter
{
public:
    void drawing(AuditedDrawing const& drawing) override
    {
        std::cout << drawing.path.toUtf8() << '\n';
        for (dxf::SummaryRow const& row : dxf::rowsOf(drawing.summary))
            printRow(OdString(row.label).toUtf8(), row.text.toUtf8());
        for (dxf::ReadNote const& note : drawing.report.notes)
            std::cout << ca::noteText(drawing.path, drawing.report, note).toUtf8() << '\n';
        if (drawing.report.moreNotes > 0)
            std::cout << drawing.path.toUtf8() << ": " << drawing.report.moreNotes << " more notes\n";
        for (OdDbAuditInfo::Finding const& finding : drawing.info.findings())
            std::cout << drawing.path.toUtf8() << ": " << finding.shown().toUtf8() << " (handle "
                      << finding.handle.ascii().toUtf8() << ")\n";
        printRow("Found", counted(drawing.numNotes(), "note") + " of reading, " +
                              counted(drawing.info.errorsFound(), "error"));
        std::cout.flush();
    }
    void unusable(std::string const&, std::string const& reason) override { std::cerr << reason << '\n'; }

private:
    /// A label and its items, wrapped between items.
    static void printRow(std::string const& label, std::string_view items)
    {
        constexpr std::size_t kLabel = 15, kWidth = 100;
        std::string line = "  " + padded(label, kLabel);
        for (bool isFirst = true; !items.empty(); isFirst = false) {
            std::size_t const comma = items.find(", ");
            std::string_view const item = items.substr(0, comma == std::string_view::npos ? comma : comma + 2);
            if (!isFirst && textWidth(line) + textWidth(item) > kWidth) {
                printLine(line);
                line = std::string(2 + kLabel, ' ');
            }
            line += item;
            items.remove_prefix(item.size());
        }
        printLine(line);
    }
    static void printLine(std::string const& line)
    {
        std::cout << std::string_view(line).substr(0, line.find_last_not_of(' ') + 1) << '\n';
    }
};

std::string countsJson(dxf::DrawingSummary::Counts const& counts)
{
    JsonObject object;
    for (dxf::DrawingSummary::Count const& each : counts)
        object.count(each.name, each.count);
    return object.object();
}

class JsonPrinter final : public AuditPrinter
{
public:
    void drawing(AuditedDrawing const& drawing) override
    {
        dxf::DrawingSummary const& summary = drawing.summary;
        JsonObject object("file", drawing.path.toUtf8());
        object.text("release", summary.release.toUtf8()).text("form", summary.isBinary ? "binary" : "text");
        object.raw("counts", JsonObject()
                                 .raw("modelSpace", countsJson(summary.modelSpace))
                                 .raw("paperSpace", countsJson(summary.paperSpace))
                                 .raw("blocks", countsJson(summary.blocks))
                                 .raw("objects", countsJson(summary.objects))
                                 .raw("tables", countsJson(summary.tables))
                                 .object());
        object.raw("keptRaw", JsonObject()
                                  .raw("classes", countsJson(summary.raw.classes))
                                  .raw("groups", countsJson(summary.raw.groups))
                                  .raw("sections", countsJson(summary.raw.sections))
                                  .raw("tables", countsJson(summary.raw.tables))
                                  .raw("headerVariables", jsonArray(summary.raw.headerVariables, jsonString))
                                  .object());
        object.raw("notes", notesJson(drawing.report)).count("moreNotes", drawing.report.moreNotes);
        object.raw("findings", jsonArray(drawing.info.findings(), findingJson));
        put(object);
    }
    void unusable(std::string const& path, std::string const& reason) override
    {
        put(JsonObject("file", path).raw("error", JsonObject("text", reason).object()));
        std::cerr << reason << '\n';
    }
    void finish() override { std::cout << (m_hasDrawings ? "\n]\n" : "[]\n"); }

private:
    static void addHandle(JsonObject& object, OdDbHandle handle)
    {
        if (!handle.isNull())
            object.text("handle", handle.ascii().toUtf8());
    }
    static std::string notesJson(dxf::ReadReport const& report)
    {
        return jsonArray(report.notes, [&report](dxf::ReadNote const& note) {
            JsonObject object;
            if (report.isBinary)
                object.count("offset", note.place);
            else if (note.place > 0)
                object.count("line", note.place);
            addHandle(object, note.handle);
            return object.text("text", note.text.toUtf8()).object();
        });
    }
    static std::string findingJson(OdDbAuditInfo::Finding const& finding)
    {
        JsonObject object;
        addHandle(object, finding.handle);
        return object.text("text", finding.text.toUtf8()).flag("canBeFixed", !finding.remedy.isEmpty()).object();
    }
    void put(JsonObject const& object)
    {
        std::cout << (m_hasDrawings ? ",\n" : "[\n") << object.object();
        m_hasDrawings = true;
    }

    bool m_hasDrawings = false;
};

ExitCode auditAll(std::vector<std::string> const& paths, AuditPrinter& printer)
{
    bool areFine = true;
    bool areUsable = true;
    for (std::string const& path : paths) {
        try {
            AuditedDrawing const drawing = audited(path);
            areFine = areFine && drawing.isFine();
            printer.drawing(drawing);
        } catch (OdError const& error) {
            areUsable = false;
            printer.unusable(path, error.what());
        }
    }
    printer.finish();
    if (!areUsable)
        return ExitCode::FileUnusable;
    return areFine ? ExitCode::FilesFine : ExitCode::FilesDamaged;
}

} // namespace

ExitCode auditDrawings(Options const& options)
{
    std::unique_ptr<AuditPrinter> printer = std::make_unique<PlainPrinter>();
    if (options.json)
        printer = std::make_unique<JsonPrinter>();
    return auditAll(options.drawings, *printer);
}
