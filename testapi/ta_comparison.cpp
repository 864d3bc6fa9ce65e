#include "testapi/ta_comparison.h"

#include <cppunit/Asserter.h>
#include <cppunit/Message.h>
#include <cppunit/SourceLine.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_test_helper";

OdString textOfCoordinates(std::span<double const> values)
{
    OdString text = L"(";
    for (double const value : values)
        text += (text.getLength() > 1 ? L", " : L"") + Comparison::textOf(value);
    return text + L")";
}

bool isInDrawing(OdDbEntity const* entity)
{
    return entity && entity->isDBRO();
}

std::string nameOf(OdDbEntity const& entity)
{
    OdString const name = classNameOf(entity);
    return (entity.isDBRO() ? name + L" " + entity.getDbHandle().ascii() : name).toUtf8();
}

} // namespace

OdString classNameOf(OdDbObject const& object)
{
    bool const isKept = odCast<OdDbRawEntity>(&object) || odCast<OdDbRawObject>(&object);
    return isKept ? OdString::fromUtf8(object.dxfName()) : object.isA()->name();
}

void FailingSink::differs(Difference const& difference)
{
    CppUnit::Message text("assertion failed");
    if (difference.expression)
        text.addDetail(std::string("Expression: ") + difference.expression);
    text.addDetail(difference.message.toUtf8());
    if (!difference.expression) {
        text.addDetail("Expected: " + difference.expected.toUtf8());
        text.addDetail("Actual  : " + difference.actual.toUtf8());
        text.addDetail("Off by  : " + Comparison::textOf(difference.offBy).toUtf8() + ", allowed " +
                       Comparison::textOf(difference.allowed).toUtf8());
    }
    if (!difference.part.isEmpty())
        text.addDetail("In " + difference.part.toUtf8());
    if (isInDrawing(m_subject.actual) || isInDrawing(m_subject.expected))
        text.addDetail("Entities: " + nameOf(*m_subject.actual) + " and " + nameOf(*m_subject.expected));
    if (m_subject.file)
        text.addDetail("Compared at " + std::string(m_subject.file) + ":" + std::to_string(m_subject.line));
    CppUnit::Asserter::fail(text, CppUnit::SourceLine(difference.place.area, difference.place.line));
    std::abort(); // the asserter always throws, but its declaration does not say so
}

Comparison::Comparison(DifferenceSink& sink, Options const& options, ObjectIdBridge const* bridge)
    : m_sink(sink), m_options(options), m_bridge(bridge)
{
}

template <std::size_t N>
bool Comparison::nearCoordinates(double const (&actual)[N], double const (&expected)[N], double allowed,
                                 Check const& check)
{
    double offBy = 0;
    bool isNear = true;
    for (std::size_t i = 0; i < N; ++i) {
        double const off = std::abs(actual[i] - expected[i]);
        isNear = isNear && (off <= allowed || actual[i] == expected[i]); // equal infinities have no difference
        offBy = off > offBy || std::isnan(off) ? off : offBy;
    }
    if (isNear)
        return true;
    auto const text = [](double const(&values)[N]) {
        return N == 1 ? textOf(values[0]) : textOfCoordinates(values);
    };
    tell({.expression = nullptr,
          .message = {},
          .expected = text(expected),
          .actual = text(actual),
          .offBy = offBy,
          .allowed = allowed,
          .part = {},
          .place = {}},
         check);
    return false;
}

bool Comparison::near(double actual, double expected, double allowed, Check const& check)
{
    return nearCoordinates({actual}, {expected}, allowed, check);
}

bool Comparison::near(OdGePoint2d const& actual, OdGePoint2d const& expected, double allowed, Check const& check)
{
    return nearCoordinates({actual.x, actual.y}, {expected.x, expected.y}, allowed, check);
}

bool Comparison::near(OdGePoint3d const& actual, OdGePoint3d const& expected, double allowed, Check const& check)
{
    return nearCoordinates({actual.x, actual.y, actual.z}, {expected.x, expected.y, expected.z}, allowed, check);
}

bool Comparison::near(OdGeVector3d const& actual, OdGeVector3d const& expected, double allowed, Check const& check)
{
    return nearCoordinates({actual.x, actual.y, actual.z}, {expected.x, expected.y, expected.z}, allowed, check);
}

bool Comparison::near(OdGeScale3d const& actual, OdGeScale3d const& expected, double allowed, Check const& check)
{
    return nearCoordinates({actual.sx, actual.sy, actual.sz}, {expected.sx, expected.sy, expected.sz}, allowed,
                           check);
}

bool Comparison::holds(bool condition, Check const& check)
{
    if (!condition)
        tellExact({}, {}, check);
    return condition;
}

bool Comparison::holds(bool condition, double actual, double expected, Check const& check)
{
    if (!condition)
        tellExact(textOf(expected), textOf(actual), check);
    return condition;
}

void Comparison::tellExact(OdString const& expected, OdString const& actual, Check const& check)
{
    tell({.expression = check.expression,
          .message = {},
          .expected = expected,
          .actual = actual,
          .part = {},
          .place = {}},
         check);
}

void Comparison::tell(Difference difference, Check const& check)
{
    difference.message = check.message;
    difference.place = {s_area, check.line};
    for (PartName const& part : m_parts)
        difference.part += odFormat(difference.part.isEmpty() ? L"%ls %d" : L", %ls %d", part.kind, part.number);
    m_sink.differs(difference);
}

OdString Comparison::textOf(bool value)
{
    return value ? L"true" : L"false";
}

OdString Comparison::textOf(double value)
{
    return ut::formatRealShortest(value);
}

OdString Comparison::textOfInteger(long long value)
{
    return odFormat(L"%lld", value);
}

OdString Comparison::textOf(OdGePoint3d const& value)
{
    return textOfCoordinates(std::array{value.x, value.y, value.z});
}

OdString Comparison::textOf(OdCmColor const& value)
{
    if (value.isTrueColor())
        return odFormat(L"#%06x", static_cast<unsigned>(value.rgb()));
    return value.isByLayer() ? L"by layer" : value.isByBlock() ? L"by block" : textOf(value.colorIndex());
}

OdString Comparison::textOf(OdDbObjectId id)
{
    if (!id.isValid())
        return id.isNull() ? OdString(L"none") : L"handle " + id.getHandle().ascii();
    OdDbObject const& object = *id.stub()->object;
    if (auto const* record = odCast<OdDbSymbolTableRecord>(&object))
        return L"\"" + record->getName() + L"\"";
    return classNameOf(object) + L" " + id.getHandle().ascii();
}

} // namespace ta
