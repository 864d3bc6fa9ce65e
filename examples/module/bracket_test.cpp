// What commands draw is compared with entities that are made by calls.
#include "bracket_fixture.h"
#include "named_suite.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

class BracketTest : public BracketFixture
{
public:
    static CppUnit::TestSuite* suite()
    {
        return namedSuite<BracketTest>(
            "Brackets", {{"A drawn bracket equals one made by calls", &BracketTest::drawnAndMade},
                         {"MIRROR makes the mirror image", &BracketTest::mirrored},
                         {"An exploded bracket lies where the block did", &BracketTest::exploded},
                         {"CHPROP changes the layer and nothing else", &BracketTest::onOtherLayer}});
    }

private:
    void drawnAndMade()
    {
        drawOutline();
        OdDbObjectId const drawnOutline = last();
        ta::executeCommands(L"CIRCLE 40,20 8");
        OdDbObjectId const drawnHole = last();

        compareEntities(opened(drawnOutline), opened(createOutline(modelSpace())));
        compareEntities(opened(drawnHole), opened(createHole(8)));
    }

    void mirrored()
    {
        OdDbObjectId const outline = createOutline(modelSpace());
        ta::executeCommands(L"MIRROR Last  0,0 0,1 No");

        // What the command does in coordinates of the user is the same between the two conversions.
        OdGeMatrix3d const atYAxis = OdGeMatrix3d::mirroringAtPlane(OdGePoint3d::kOrigin, OdGeVector3d::kXAxis);
        CPPUNIT_ASSERT(last() != outline);
        compareEntities(opened(last()), transformed(outline, ucsToWorld() * atYAxis * worldToUcs()));
    }

    void exploded()
    {
        OdDbObjectId const block = createBTR(db().getBlockTableId(), L"BRACKET");
        OdDbObjectId const outline = createOutline(block);
        OdDbObjectId const insert = createInsert(modelSpace(), block, {100, 50, 0}, OdaPI / 6, nullptr, {2, 2, 2});
        OdGeMatrix3d const placement = insert.open<OdDbBlockReference>()->blockTransform();
        ta::executeCommands(L"EXPLODE Last ");

        CPPUNIT_ASSERT(insert.isErased());
        compareEntities(opened(last()), transformed(outline, placement));
    }

    void onOtherLayer()
    {
        OdDbObjectId const hole = createHole(8);
        OdDbEntityPtr const before = transformed(hole, OdGeMatrix3d::kIdentity);
        OdDbObjectId const layer = ta::createLayer(db(), L"Holes_");
        OdString const name = layer.open<OdDbLayerTableRecord>()->getName();
        ta::executeCommands(L"CHPROP Last  LAyer " + name + L"\n\n");

        CPPUNIT_ASSERT(opened(hole)->layerId() == layer);
        bool const skipCommonProps = true; // the layer is one of them
        compareEntities(opened(hole), before, skipCommonProps);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(BracketTest);

} // namespace
