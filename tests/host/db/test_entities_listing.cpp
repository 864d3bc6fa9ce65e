// What users read of splines, areas, texts and block references.
#include "tests/host/db/test_block_fixture.h"

#include "host/db/entities/od_db_attribute_definition.h"
#include "host/db/entities/od_db_face.h"
#include "host/db/entities/od_db_minsert_block.h"
#include "host/db/entities/od_db_solid.h"
#include "host/db/entities/od_db_spline.h"
#include "host/db/od_db_property_sink.h"

namespace {

/// What an entity tells, one line for each value.
class ListedLines : public OdDbPropertySink
{
public:
    explicit ListedLines(OdDbEntity const& entity) { entity.listProperties(*this); }
    std::string text() const { return m_text.toUtf8(); }

    void point(wchar_t const* name, OdGePoint3d const& p) override
    {
        add(name, odFormat(L"(%g %g %g)", p.x, p.y, p.z));
    }
    void vector(wchar_t const* name, OdGeVector3d const& v) override
    {
        add(name, odFormat(L"<%g %g %g>", v.x, v.y, v.z));
    }
    void distance(wchar_t const* name, double value) override { add(name, odFormat(L"%g", value)); }
    void area(wchar_t const* name, double value) override { add(name, odFormat(L"%g", value)); }
    void angle(wchar_t const* name, double radians) override { add(name, odFormat(L"%g rad", radians)); }
    void number(wchar_t const* name, double value) override { add(name, odFormat(L"%g", value)); }
    void count(wchar_t const* name, long long value) override { add(name, odFormat(L"%lld", value)); }
    void text(wchar_t const* name, OdString const& value) override { add(name, value); }
    void flag(wchar_t const* name, bool value) override { add(name, value ? L"yes" : L"no"); }
    void reference(wchar_t const* name, OdDbObjectId id) override
    {
        add(name, id.isNull() ? OdString(L"-") : id.open<OdDbSymbolTableRecord>()->getName());
    }
    void part(wchar_t const* name, int number) override { add(name, odFormat(L"%d", number)); }

private:
    void add(wchar_t const* name, OdString const& value) { m_text += OdString(name) + L" " + value + L"\n"; }

    OdString m_text;
};

void assertListed(char const* expected, OdDbEntity const& entity)
{
    CPPUNIT_ASSERT_EQUAL(std::string(expected), ListedLines(entity).text());
}

class ListingTest : public BlockFixture
{
    CPPUNIT_TEST_SUITE(ListingTest);
    CPPUNIT_TEST(splines);
    CPPUNIT_TEST(areas);
    CPPUNIT_TEST(texts);
    CPPUNIT_TEST(references);
    CPPUNIT_TEST_SUITE_END();

    void splines()
    {
        OdDbSpline spline;
        spline.setNurbsData(1, true, false, false, {{0, 0, 0}, {3, 4, 0}}, OdGeKnotVector({0, 0, 2, 2}), {1, 1});
        assertListed("degree 1\nclosed no\nperiodic no\nrational yes\nplanar yes\nnormal <0 0 1>\nlength 5\n"
                     "control point 1\nposition (0 0 0)\nweight 1\ncontrol point 2\nposition (3 4 0)\nweight 1\n"
                     "knot 1\nparameter 0\nknot 2\nparameter 0\nknot 3\nparameter 2\nknot 4\nparameter 2\n",
                     spline);
        OdDbSpline fitted;
        fitted.setFitData({{0, 0, 0}, {3, 4, 0}}, {1, 0, 0});
        std::string const listed = ListedLines(fitted).text();
        CPPUNIT_ASSERT(
            listed.find("fit tolerance 0\nstart tangent <1 0 0>\nend tangent <0 0 0>\n"
                        "fit point 1\nposition (0 0 0)\nfit point 2\nposition (3 4 0)\ncontrol point 1\n") !=
            std::string::npos);
    }

    void areas()
    {
        OdDbSolid solid({0, 0, 1}, {1, 0, 1}, {0, 1, 1}, {1, 1, 1});
        solid.setThickness(2);
        assertListed("corner (0 0 1)\ncorner (1 0 1)\ncorner (0 1 1)\ncorner (1 1 1)\nthickness 2\n", solid);
        OdDbFace face({0, 0, 0}, {1, 0, 0}, {1, 1, 5}, {0, 1, 0});
        face.makeEdgeInvisibleAt(2);
        assertListed("corner 1\nposition (0 0 0)\nedge visible yes\ncorner 2\nposition (1 0 0)\nedge visible yes\n"
                     "corner 3\nposition (1 1 5)\nedge visible no\ncorner 4\nposition (0 1 0)\nedge visible yes\n",
                     face);
    }

    void texts()
    {
        OdDbAttributeDefinitionPtr const definition(new OdDbAttributeDefinition);
        definition->setTag(L"NAME");
        definition->setPrompt(L"Name?");
        definition->setTextString(L"none");
        definition->setConstant(true);
        definition->setHorizontalMode(OdDbTextHorizontalMode::kMiddle);
        definition->setAlignmentPoint({1, 2, 0});
        definition->mirrorInX(true);
        modelSpace()->appendOdDbEntity(definition);
        std::string const listed = ListedLines(*definition).text();
        CPPUNIT_ASSERT(listed.starts_with("prompt Name?\ntag NAME\ninvisible no\nconstant yes\nverified no\n"
                                          "preset no\nposition locked in block no\ntext none\nstyle Standard\n"));
        CPPUNIT_ASSERT(listed.ends_with("alignment point (1 2 0)\nhorizontal alignment middle\n"
                                        "vertical alignment baseline\nheight 1\nrotation 0 rad\nwidth factor 1\n"
                                        "oblique angle 0 rad\nbackwards yes\n"));
    }

    void references()
    {
        auto const grid = insert<OdDbMInsertBlock>(*modelSpace(), *sampleBlock(), {1, 2, 3});
        grid->setScaleFactors({1, 2, 3});
        grid->setColumns(4);
        grid->setColumnSpacing(2.5);
        OdDbAttributePtr const attribute(new OdDbAttribute);
        attribute->setTag(L"NAME");
        grid->appendAttribute(attribute);
        std::string const listed = ListedLines(*grid).text();
        CPPUNIT_ASSERT(
            listed.starts_with("block Sample\nposition (1 2 3)\nx scale factor 1\ny scale factor 2\n"
                               "z scale factor 3\nrotation 0 rad\ncolumns 4\nrows 1\ncolumn spacing 2.5\n"
                               "row spacing 0\nattribute 1\ntag NAME\n"));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(ListingTest);

} // namespace
