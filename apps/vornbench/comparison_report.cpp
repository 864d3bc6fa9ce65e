#include "apps/vornbench/comparison_report.h"

#include "apps/vornbench/json_object.h"
#include "apps/vornbench/text_width.h"

#include <cmath>

namespace {

constexpr std::size_t s_linesOnTerminal = 100;

/// Text out of drawings may hold line breaks.
std::string oneLine(OdString text)
{
    text.replace(L"\r", L"\\r");
    text.replace(L"\n", L"\\n");
    return printable(text.toUtf8());
}

/// "3 by the fields of drawing files (OdDbHatch 2, OdDbLeader 1)"
std::string fieldsText(std::map<OdString, long> const& comparedByFields)
{
    long total = 0;
    std::string classes;
    for (auto const& [name, count] : comparedByFields) {
        classes += (total == 0 ? "" : ", ") + name.toUtf8() + " " + std::to_string(count);
        total += count;
    }
    return std::to_string(total) + " by the fields of drawing files (" + classes + ")";
}

std::string numberJson(double value)
{
    return std::isfinite(value) ? ut::formatRealShortest(value).toUtf8() : "null";
}

std::string_view kindName(ta::DrawingDifference::EKind kind)
{
    switch (kind) {
    case ta::DrawingDifference::EKind::kChanged: return "changed";
    case ta::DrawingDifference::EKind::kOnlyInFirst: return "onlyInFirst";
    case ta::DrawingDifference::EKind::kOnlyInSecond: return "onlyInSecond";
    }
    return {};
}

std::string handleJson(OdDbHandle handle)
{
    return handle.isNull() ? "null" : jsonString(handle.ascii().toUtf8());
}

std::string pairJson(std::string const& first, std::string const& second)
{
    return "[" + first + "," + second + "]";
}

void addTextUnlessEmpty(JsonObject& object, std::string_view name, OdString const& text)
{
    if (!text.isEmpty())
        object.text(name, text.toUtf8());
}

void addProperty(JsonObject& object, ta::DrawingDifference const& difference)
{
    ta::Difference const& property = difference.property;
    addTextUnlessEmpty(object, "part", property.part);
    object.text("property", difference.propertyName().toUtf8()).flag("isFileField", difference.isFileField);
    if (!property.actual.isEmpty() || !property.expected.isEmpty())
        object.raw("values",
                   pairJson(jsonString(property.actual.toUtf8()), jsonString(property.expected.toUtf8())));
    if (property.offBy != 0)
        object.raw("offBy", numberJson(property.offBy)).raw("allowed", numberJson(property.allowed));
}

} // namespace

void PlainComparisonReport::begin(Options const& options)
{
    m_terminal.out() << options.first << " | " << options.second << '\n';
}

void PlainComparisonReport::add(ta::DrawingDifference const& difference)
{
    if (!m_terminal.isInteractive() || m_numAdded < s_linesOnTerminal)
        m_terminal.out() << oneLine(difference.text()) << '\n';
    ++m_numAdded;
}

void PlainComparisonReport::end(ta::DrawingComparison const& comparison)
{
    std::ostream& out = m_terminal.out();
    if (m_terminal.isInteractive() && m_numAdded > s_linesOnTerminal)
        out << "... and " << m_numAdded - s_linesOnTerminal << " more; --json writes all of them to a file\n";
    out << (m_numAdded == 0 ? "equal" : counted(m_numAdded, "difference")) << "; ";
    auto const compared = static_cast<std::size_t>(comparison.comparedEntities());
    out << compared << (compared == 1 ? " pair" : " pairs") << " of entities compared";
    if (!comparison.comparedByFields().empty())
        out << ", " << fieldsText(comparison.comparedByFields());
    out << std::endl;
}

JsonComparisonReport::JsonComparisonReport(std::string const& path, Options const& options)
    : m_file(OdString::fromUtf8(path))
{
    m_file.write("{\"files\":" + pairJson(jsonString(options.first), jsonString(options.second)) +
                 ",\n\"options\":" + JsonObject().raw("tolerance", numberJson(options.tolerance)).object() +
                 ",\n\"differences\":[");
}

void JsonComparisonReport::add(ta::DrawingDifference const& difference)
{
    JsonObject object("kind", kindName(difference.kind));
    object.text("place", difference.place.toUtf8());
    addTextUnlessEmpty(object, "class", difference.className);
    addTextUnlessEmpty(object, "name", difference.name);
    if (!difference.handle1.isNull() || !difference.handle2.isNull())
        object.raw("handles", pairJson(handleJson(difference.handle1), handleJson(difference.handle2)));
    if (difference.kind == ta::DrawingDifference::EKind::kChanged)
        addProperty(object, difference);
    m_file.write((m_hasDifferences ? ",\n" : "\n") + object.object());
    m_hasDifferences = true;
}

void JsonComparisonReport::end(ta::DrawingComparison const& comparison)
{
    JsonObject byFields;
    for (auto const& [name, count] : comparison.comparedByFields())
        byFields.count(name.toUtf8(), static_cast<std::size_t>(count));
    JsonObject counts;
    counts.count("differences", static_cast<std::size_t>(comparison.differences()))
        .count("comparedEntities", static_cast<std::size_t>(comparison.comparedEntities()))
        .raw("comparedByFields", byFields.object());
    m_file.write(std::string(m_hasDifferences ? "\n" : "") + "],\n\"equal\":" +
                 (m_hasDifferences ? "false" : "true") + ",\n\"counts\":" + counts.object() + "}\n");
    m_file.commit();
}
