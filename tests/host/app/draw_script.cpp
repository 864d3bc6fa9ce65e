#include "tests/host/app/draw_script.h"

#include "host/app/ca_doc.h"
#include "host/app/command_line.h"
#include "host/app/command_processor.h"
#include "host/app/sds_cmd.h"
#include "host/db/entities/od_db_arc.h"
#include "host/db/entities/od_db_circle.h"
#include "host/db/entities/od_db_line.h"
#include "host/db/entities/od_db_point.h"
#include "host/db/entities/od_db_polyline.h"
#include "host/db/entities/od_db_text.h"
#include "host/db/od_db_database.h"
#include "host/db/od_db_property_sink.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/dxf/dxf_file.h"
#include "host/sds/ca_resbuf.h"
#include "host/ut/ut_text.h"

#include <cppunit/TestAssert.h>

#include <algorithm>

namespace {

OdString number(double value)
{
    return odFormat(L"%.9g", std::round(value * 1e4) / 1e4 + 0.0);
}

OdString point(OdGePoint3d const& p)
{
    OdString const xy = number(p.x) + L"," + number(p.y);
    return number(p.z) == L"0" ? xy : xy + L"," + number(p.z);
}

OdString degrees(double angle)
{
    OdString const text = number(odgeToDegrees(odgeFoldAngle(angle)));
    return text == L"360" ? OdString(L"0") : text;
}

OdString normalSuffix(OdGeVector3d const& normal)
{
    OdString const text = point({normal.x, normal.y, normal.z});
    return text == L"0,0,1" ? OdString() : L" n" + text;
}

OdString describe(OdDbLine const& line)
{
    return L"LINE " + point(line.startPoint()) + L" " + point(line.endPoint());
}

OdString describe(OdDbPoint const& at)
{
    return L"POINT " + point(at.position());
}

OdString describe(OdDbCircle const& circle)
{
    return L"CIRCLE " + point(circle.center()) + L" r" + number(circle.radius());
}

OdString describe(OdDbArc const& arc)
{
    return L"ARC " + point(arc.center()) + L" r" + number(arc.radius()) + L" " + degrees(arc.startAngle()) +
           L".." + degrees(arc.endAngle());
}

/// Bulges behind "~"; widths in brackets, or once behind "w" when they are constant.
OdString describe(OdDbPolyline const& polyline)
{
    OdString text = L"PLINE";
    for (unsigned i = 0; i < polyline.numVerts(); ++i) {
        text += L" " + point(polyline.getWorldPointAt(i));
        if (polyline.getBulgeAt(i) != 0)
            text += L"~" + number(polyline.getBulgeAt(i));
        if (polyline.hasWidth() && polyline.getConstantWidth() == 0)
            text += L"[" + number(polyline.getStartWidthAt(i)) + L"-" + number(polyline.getEndWidthAt(i)) + L"]";
    }
    if (polyline.getConstantWidth() != 0)
        text += L" w" + number(polyline.getConstantWidth());
    return polyline.isClosed() ? text + L" closed" : text;
}

/// Justification as numbers of the horizontal and vertical mode.
OdString describe(OdDbText const& text)
{
    OdString line = L"TEXT " + text.textString() + L" ";
    bool const runs = text.horizontalMode() == OdDbTextHorizontalMode::kAligned ||
                      text.horizontalMode() == OdDbTextHorizontalMode::kFit;
    if (text.isDefaultAlignment() || runs)
        line += point(text.position());
    if (!text.isDefaultAlignment())
        line += (runs ? OdString(L" to ") : OdString()) + point(text.alignmentPoint());
    line += L" h" + number(text.height()) + L" r" + degrees(text.rotation());
    if (!text.isDefaultAlignment())
        line +=
            odFormat(L" j%d/%d", static_cast<int>(text.horizontalMode()), static_cast<int>(text.verticalMode()));
    if (text.widthFactor() != 1)
        line += L" x" + number(text.widthFactor());
    line += text.isMirroredInX() ? L" mirrored in x" : L"";
    return text.isMirroredInY() ? line + L" mirrored in y" : line;
}

template <class T>
bool describeAs(OdDbEntity const& entity, OdString& text)
{
    auto const* const object = odCast<T>(&entity);
    if (object)
        text = describe(*object) + normalSuffix(object->normal());
    return object != nullptr;
}

/// What an entity lists, in one line.
class ListedText : public OdDbPropertySink
{
public:
    explicit ListedText(OdDbEntity const& entity) : m_text(OdString::fromUtf8(entity.dxfName()))
    {
        entity.listProperties(*this);
    }
    OdString const& text() const { return m_text; }

    void point(wchar_t const* name, OdGePoint3d const& value) override { add(name, ::point(value)); }
    void vector(wchar_t const* name, OdGeVector3d const& value) override { point(name, OdGePoint3d() + value); }
    void distance(wchar_t const* name, double value) override { add(name, ::number(value)); }
    void area(wchar_t const* name, double value) override { add(name, ::number(value)); }
    void angle(wchar_t const* name, double radians) override { add(name, degrees(radians)); }
    void number(wchar_t const* name, double value) override { add(name, ::number(value)); }
    void count(wchar_t const* name, long long value) override { add(name, odFormat(L"%lld", value)); }
    void text(wchar_t const* name, OdString const& value) override { add(name, value); }
    void flag(wchar_t const* name, bool value) override { add(name, value ? L"yes" : L"no"); }
    void reference(wchar_t const* name, OdDbObjectId value) override
    {
        auto const* const record = value.isValid() ? odCast<OdDbSymbolTableRecord>(value.stub()->object) : nullptr;
        add(name, record ? record->getName() : OdString(L"-"));
    }
    void part(wchar_t const* name, int number) override { m_text += odFormat(L" %ls %d:", name, number); }

private:
    void add(wchar_t const* name, OdString const& value) { m_text += OdString(L" ") + name + L" " + value; }

    OdString m_text;
};

OdString describeEntity(OdDbEntity const& entity)
{
    OdString text;
    bool const isKnown = describeAs<OdDbLine>(entity, text) || describeAs<OdDbPoint>(entity, text) ||
                         describeAs<OdDbCircle>(entity, text) || describeAs<OdDbArc>(entity, text) ||
                         describeAs<OdDbPolyline>(entity, text) || describeAs<OdDbText>(entity, text);
    return isKnown ? text : ListedText(entity).text();
}

void assertEqual(OdString const& script, OdString const& expected, OdString const& actual)
{
    CPPUNIT_ASSERT_EQUAL_MESSAGE(script.toUtf8(), expected.toUtf8(), actual.toUtf8());
}

void assertDrawn(OdString const& script, OdString const& expected, OdString const& actual)
{
    bool const isPattern = expected.find(L'*') != std::wstring::npos;
    if (!isPattern || !ut::matchesWildcard(actual.str(), expected.str()))
        assertEqual(script, expected, actual);
}

} // namespace

void DrawScriptTest::setUp()
{
    m_variables = ca::app()->variables();
    CPPUNIT_ASSERT(ca::app()->openFile());
}

void DrawScriptTest::tearDown()
{
    sds_cmd(nullptr);
    while (ca::CaDoc* const document = ca::curDoc())
        document->close();
    ca::app()->variables() = m_variables;
}

void DrawScriptTest::renew()
{
    tearDown();
    setUp();
}

int DrawScriptTest::feed(OdString const& script)
{
    ca::RbListPtr list;
    sds_resbuf* last = nullptr;
    for (std::size_t start = 0; start <= script.getLength();) {
        std::size_t const end = std::min(script.find(L'|', start), script.getLength());
        sds_resbuf* const node = ca::allocRb(script.mid(start, end - start).c_str());
        if (last)
            last->rbnext = node;
        else
            list.reset(node);
        last = node;
        start = end + 1;
    }
    return sds_cmd(list.get());
}

OdDbDatabase& DrawScriptTest::db()
{
    return *ca::curDb();
}

OdString DrawScriptTest::drawn()
{
    OdString all;
    auto const space = db().getModelSpaceId().open<OdDbBlockTableRecord>();
    for (OdDbObjectIterator it = space->newIterator(); !it.done(); it.step())
        all += (all.isEmpty() ? OdString() : OdString(L"; ")) + describeEntity(*it.entity());
    return all;
}

std::string DrawScriptTest::bytes()
{
    return dxf::writeBytes(db(), {});
}

OdString DrawScriptTest::lastPrompt()
{
    return ca::app()->commandLine().lastPrompt();
}

bool DrawScriptTest::hasLine(OdString const& text)
{
    auto const& lines = ca::app()->commandLine().lines();
    return std::find(lines.begin(), lines.end(), text) != lines.end();
}

void DrawScriptTest::checkDrawn(std::span<DrawnCase const> cases)
{
    for (DrawnCase const& each : cases) {
        renew();
        std::string const script = OdString(each.script).toUtf8();
        std::string const before = bytes();
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script + ": " + lastPrompt().toUtf8(), int(RTNORM), feed(each.script));
        CPPUNIT_ASSERT_MESSAGE(script + " leaves a command", ca::CommandProcessor::get().isIdle());
        assertDrawn(each.script, each.drawn, drawn());
        std::string const after = bytes();
        for (int i = 0; i < each.commands; ++i) {
            CPPUNIT_ASSERT_MESSAGE(script + ": gone before the last U", !drawn().isEmpty());
            feed(L"U");
        }
        assertEqual(each.script, L"", drawn());
        CPPUNIT_ASSERT_MESSAGE(script + ": U left traces", bytes() == before);
        for (int i = 0; i < each.commands; ++i)
            CPPUNIT_ASSERT_EQUAL(int(RTNORM), feed(L"REDO"));
        assertDrawn(each.script, each.drawn, drawn());
        CPPUNIT_ASSERT_MESSAGE(script + ": REDO did not bring all again", bytes() == after);
    }
}

void DrawScriptTest::checkDrawnUpright(std::span<DrawnCase const> cases)
{
    for (DrawnCase const& each : cases) {
        renew();
        feed(L"LINE|0,0|0,10|");
        db().setHeaderPoint("UCSXDIR", {0, 1, 0});
        db().setHeaderPoint("UCSYDIR", {0, 0, 1});
        feed(each.script);
        assertEqual(each.script, each.drawn, drawn());
    }
}

void DrawScriptTest::checkRefused(std::span<RefusedCase const> cases)
{
    for (RefusedCase const& each : cases) {
        renew();
        std::string const script = OdString(each.script).toUtf8();
        CPPUNIT_ASSERT_EQUAL_MESSAGE(script, int(RTERROR), feed(each.script));
        assertEqual(each.script, each.message, lastPrompt());
        CPPUNIT_ASSERT_MESSAGE(script, ca::CommandProcessor::get().isIdle());
    }
}

void DrawScriptTest::checkPrompts(std::span<PromptCase const> cases)
{
    for (PromptCase const& each : cases) {
        renew();
        CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(each.script).toUtf8(), int(RTNORM), feed(each.script));
        assertEqual(each.script, each.prompt, lastPrompt());
    }
}
