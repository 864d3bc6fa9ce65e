#include "testmodules/cmdtests/reference_findings.h"

#include <cppunit/Asserter.h>
#include <cppunit/Message.h>
#include <cppunit/SourceLine.h>

#include <algorithm>

namespace {

constexpr std::size_t s_furtherLines = 9;

bool isOfEntity(ta::DrawingDifference const& difference)
{
    return difference.name.isEmpty() && !difference.className.isEmpty();
}

wchar_t const* absenceText(ta::DrawingDifference::EKind kind)
{
    return kind == ta::DrawingDifference::EKind::kOnlyInFirst ? L"not in the reference" : L"only in the reference";
}

} // namespace

void ReferenceFindings::add(ta::DrawingDifference const& difference)
{
    ++m_count;
    if (isFirst())
        addDetails(difference);
    else
        addFurther(difference.text(L"the tested drawing", L"the reference"));
}

void ReferenceFindings::add(OdString const& text, ta::Place place)
{
    ++m_count;
    if (!isFirst())
        return addFurther(text);
    m_place = place;
    m_details = {text, L"Reference: " + m_referencePath};
}

void ReferenceFindings::addFurther(OdString const& line)
{
    if (m_further.size() < s_furtherLines)
        m_further.push_back(line);
}

void ReferenceFindings::addDetails(ta::DrawingDifference const& difference)
{
    ta::Difference const& property = difference.property;
    bool const isChanged = difference.kind == ta::DrawingDifference::EKind::kChanged;
    m_place = isChanged ? property.place : ta::Place{"testmodules/cmdtests", __LINE__};
    if (isChanged && property.expression)
        m_details.push_back(L"Expression: " + OdString::fromUtf8(property.expression));
    m_details.push_back(subjectOf(difference) + L": " +
                        (isChanged ? property.message : OdString(absenceText(difference.kind))));
    if (isChanged && (!property.actual.isEmpty() || !property.expected.isEmpty())) {
        m_details.push_back(L"Expected: " + property.expected);
        m_details.push_back(L"Actual  : " + property.actual);
    }
    if (isChanged && property.offBy != 0)
        m_details.push_back(odFormat(L"Off by  : %ls, allowed %ls", ta::Comparison::textOf(property.offBy).c_str(),
                                     ta::Comparison::textOf(property.allowed).c_str()));
    if (isChanged && !property.part.isEmpty())
        m_details.push_back(L"In " + property.part);
    OdString const handle = difference.handle2.isNull() ? OdString() : L", handle " + difference.handle2.ascii();
    m_details.push_back(L"Reference: " + m_referencePath + handle);
}

/// "Entity 'L1' (OdDbLine, handle 2A)", also with its block; "layer table 'WALLS'".
OdString ReferenceFindings::subjectOf(ta::DrawingDifference const& difference) const
{
    if (!isOfEntity(difference))
        return difference.place + (difference.name.isEmpty() ? OdString() : L" '" + difference.name + L"'");
    bool const isTested = !difference.handle1.isNull();
    OdDbHandle const handle = isTested ? difference.handle1 : difference.handle2;
    OdString const testName = isTested ? testNameOf(handle) : OdString();
    OdString const name = testName.isEmpty() ? OdString(L" ") : L" '" + testName + L"' ";
    OdString const place = difference.place == L"model space" ? OdString() : L" in " + difference.place;
    return L"Entity" + name + L"(" + difference.className + L", handle " + handle.ascii() + L")" + place;
}

/// The name that the test gave to an entity; empty when it has none.
OdString ReferenceFindings::testNameOf(OdDbHandle handle) const
{
    auto const& names = m_test.namedObjectIds();
    auto const found = std::ranges::find_if(names, [&](auto const& named) {
        return named.second.database() == m_test.curDb() && named.second.getHandle() == handle;
    });
    return found == names.end() ? OdString() : found->first;
}

void ReferenceFindings::failIfAny(OdString const& note) const
{
    if (m_count == 0)
        return;
    CppUnit::Message message("assertion failed");
    for (OdString const& detail : m_details)
        message.addDetail(detail.toUtf8());
    for (OdString const& line : m_further)
        message.addDetail(line.toUtf8());
    if (long const others = m_count - 1 - static_cast<long>(m_further.size()); others > 0)
        message.addDetail("... and " + std::to_string(others) + " more");
    if (!note.isEmpty())
        message.addDetail(note.toUtf8());
    CppUnit::Asserter::fail(message, CppUnit::SourceLine(m_place.area, m_place.line));
}

OdString ReferenceFindings::fieldsNote(std::map<OdString, long> const& comparedByFields)
{
    OdString classes;
    for (auto const& [name, count] : comparedByFields)
        classes += odFormat(classes.isEmpty() ? L"%ls %ld" : L", %ls %ld", name.c_str(), count);
    return classes.isEmpty() ? classes : L"compared by the fields of drawing files: " + classes;
}
