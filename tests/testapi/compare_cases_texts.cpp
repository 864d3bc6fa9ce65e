#include "tests/testapi/compare_cases.h"

namespace {

OdDbObjectId recordOf(OdDbDatabase& database, OdDbTableKind kind, wchar_t const* name)
{
    OdDbObjectId const id = database.table(kind).getAt(name);
    CPPUNIT_ASSERT(!id.isNull());
    return id;
}

/// As the database defaults leave it, without the parts that depend on the text.
void giveText(OdDbText& text)
{
    text.setHeight(2);
    text.setPosition({1, 2, 3});
    text.setRotation(0.5);
    text.setOblique(0.25);
}

} // namespace

template <>
OdDbTextPtr madeForComparison(OdDbDatabase&)
{
    OdDbTextPtr text(new OdDbText);
    giveText(*text);
    return text;
}

template <>
OdDbAttributePtr madeForComparison(OdDbDatabase&)
{
    OdDbAttributePtr attribute(new OdDbAttribute);
    giveText(*attribute);
    attribute->setTag(L"NUMBER");
    return attribute;
}

template <>
OdDbAttributeDefinitionPtr madeForComparison(OdDbDatabase&)
{
    OdDbAttributeDefinitionPtr definition(new OdDbAttributeDefinition);
    giveText(*definition);
    definition->setTag(L"NUMBER");
    definition->setPrompt(L"Number of the part");
    return definition;
}

template <>
OdDbMTextPtr madeForComparison(OdDbDatabase&)
{
    OdDbMTextPtr text(new OdDbMText);
    text->setContents(L"first\\Psecond");
    text->setLocation({1, 2, 3});
    text->setWidth(20);
    text->setTextHeight(2);
    return text;
}

template <>
OdDbBlockReferencePtr madeForComparison(OdDbDatabase& database)
{
    OdDbBlockReferencePtr reference(new OdDbBlockReference);
    reference->setBlockTableRecord(recordOf(database, OdDbTableKind::kBlock, L"DOOR"));
    for (wchar_t const* const tag : {L"NUMBER", L"COLOR", L"NUMBER"}) {
        OdDbAttributePtr const attribute = madeForComparison<OdDbAttribute>(database);
        attribute->setTag(tag);
        reference->appendAttribute(attribute.get());
    }
    return reference;
}

template <>
OdDbMInsertBlockPtr madeForComparison(OdDbDatabase& database)
{
    OdDbMInsertBlockPtr grid(new OdDbMInsertBlock);
    grid->setBlockTableRecord(recordOf(database, OdDbTableKind::kBlock, L"DOOR"));
    grid->setColumns(3);
    grid->setRows(2);
    grid->setColumnSpacing(10);
    grid->setRowSpacing(20);
    return grid;
}

namespace {

/// Rows that texts, attributes and definitions have in common.
template <class T>
void addTextRows(std::vector<CompareCase>& cases)
{
    CompareCasesOf<T>{cases}
        .near("normal",
              [](T& e, double d) {
                  e.setNormal({d, 0, 1});
              })
        .inCompany() // angles are measured from another X axis
        .near("position",
              [](T& e, double d) {
                  e.setPosition({1, 2 + d, 3});
              })
        .near("thickness", [](T& e, double d) { e.setThickness(d); })
        .exact(L"Oblique angles are different", "isEqualAngle(pEnt1->oblique(), pEnt2->oblique())",
               [](T& e) { e.setOblique(0.25 + 1e-9); })
        .exact(L"Rotation angles are different", "isEqualAngle(a1, a2)", [](T& e) { e.setRotation(0.5 - 1e-9); })
        .near("height", [](T& e, double d) { e.setHeight(2 + d); })
        .near("widthFactor", [](T& e, double d) { e.setWidthFactor(1 + d); })
        .exact("isMirroredInX", [](T& e) { e.mirrorInX(true); })
        .exact("isMirroredInY", [](T& e) { e.mirrorInY(true); })
        .exact("textStyle",
               [](T& e) { e.setTextStyle(recordOf(*e.database(), OdDbTableKind::kTextStyle, L"NOTES")); })
        .exact("textString", [](T& e) { e.setTextString(L"other"); });

    CompareCasesOf<T> aligned{cases};
    aligned.make = [](OdDbDatabase& database) -> OdDbEntityPtr {
        OdSmartPtr<T> text = madeForComparison<T>(database);
        text->setHorizontalMode(OdDbTextHorizontalMode::kCenter);
        text->setAlignmentPoint({1, 2, 3});
        return text;
    };
    // A text without characters has no width, so that it stands in the same place in any of these modes.
    aligned.exact("horizontalMode", [](T& e) { e.setHorizontalMode(OdDbTextHorizontalMode::kRight); });
    aligned.near("position", [](T& e, double d) { e.setAlignmentPoint({1 + d, 2, 3}); });
    aligned.inCompany(); // the alignment point, from which it follows
    aligned.exact("verticalMode", [](T& e) { e.setVerticalMode(OdDbTextVerticalMode::kTop); });
    aligned.behindOthers(); // the position, which follows from both

    CompareCasesOf<T> fit{cases};
    fit.make = [](OdDbDatabase& database) -> OdDbEntityPtr {
        OdSmartPtr<T> text = madeForComparison<T>(database);
        text->setRotation(0);
        text->setHorizontalMode(OdDbTextHorizontalMode::kFit);
        text->setAlignmentPoint({9, 2, 3});
        return text;
    };
    fit.near("alignmentPoint", [](T& e, double d) { e.setAlignmentPoint({9 + d, 2, 3}); });
}

template <class T>
void addAttributeRows(std::vector<CompareCase>& cases)
{
    CompareCasesOf<T>{cases}
        .exact("tag", [](T& e) { e.setTag(L"OTHER"); })
        .exact("isInvisible", [](T& e) { e.setInvisible(true); })
        .exact("isConstant", [](T& e) { e.setConstant(true); })
        .exact("isVerifiable", [](T& e) { e.setVerifiable(true); })
        .exact("isPreset", [](T& e) { e.setPreset(true); })
        .exact("lockPositionInBlock", [](T& e) { e.setLockPositionInBlock(true); })
        .exact("isMTextAttribute",
               [](T& e) {
                   OdDbMTextPtr const text = madeForComparison<OdDbMText>(*e.database());
                   e.setMTextAttribute(text.get());
               })
        .inCompany() // the text takes its place and height from it
        .annotative();
    CompareCasesOf<T> multiline{cases};
    multiline.make = [](OdDbDatabase& database) -> OdDbEntityPtr {
        OdSmartPtr<T> attribute = madeForComparison<T>(database);
        attribute->setMTextAttribute(madeForComparison<OdDbMText>(database).get());
        return attribute;
    };
    multiline.near("width", [](T& e, double d) {
        OdDbMTextPtr const text = e.getMTextAttribute();
        text->setWidth(20 + d);
        e.setMTextAttribute(text.get());
    });
}

void addMTextRows(std::vector<CompareCase>& cases)
{
    CompareCasesOf<OdDbMText>{cases}
        .near("normal",
              [](OdDbMText& e, double d) {
                  e.setNormal({0, d, 1});
              })
        .near("location",
              [](OdDbMText& e, double d) {
                  e.setLocation({1, 2, 3 + d});
              })
        .near("direction",
              [](OdDbMText& e, double d) {
                  e.setDirection({1, d, 0});
              })
        .inCompany() // the rotation, which follows from it
        .near("rotation", [](OdDbMText& e, double d) { e.setRotation(d); })
        .behindOthers()
        .near("width", [](OdDbMText& e, double d) { e.setWidth(20 + d); })
        .near("textHeight", [](OdDbMText& e, double d) { e.setTextHeight(2 + d); })
        .exact("attachment", [](OdDbMText& e) { e.setAttachment(OdDbMTextAttachment::kBottomRight); })
        .inCompany() // the modes, which follow from it
        .exact("horizontalMode", [](OdDbMText& e) { e.setAttachment(OdDbMTextAttachment::kTopRight); })
        .behindOthers()
        .exact("verticalMode", [](OdDbMText& e) { e.setAttachment(OdDbMTextAttachment::kBottomLeft); })
        .behindOthers()
        .exact("contents", [](OdDbMText& e) { e.setContents(L"{first}\\Psecond"); })
        .exact("textStyle",
               [](OdDbMText& e) { e.setTextStyle(recordOf(*e.database(), OdDbTableKind::kTextStyle, L"NOTES")); })
        .annotative();
}

template <class T>
void addReferenceRows(std::vector<CompareCase>& cases)
{
    CompareCasesOf<T>{cases}
        .near("normal",
              [](T& e, double d) {
                  e.setNormal({d, 0, 1});
              })
        .near("position",
              [](T& e, double d) {
                  e.setPosition({d, 0, 0});
              })
        .near("scaleFactors",
              [](T& e, double d) {
                  e.setScaleFactors({1, 1 + d, 1});
              })
        .near("rotation", [](T& e, double d) { e.setRotation(d); })
        .exact("blockTableRecord",
               [](T& e) { e.setBlockTableRecord(recordOf(*e.database(), OdDbTableKind::kBlock, L"WINDOW")); });
}

} // namespace

void addTextCases(std::vector<CompareCase>& cases)
{
    addTextRows<OdDbText>(cases);
    CompareCasesOf<OdDbText>{cases}.annotative();
    addTextRows<OdDbAttribute>(cases);
    addAttributeRows<OdDbAttribute>(cases);
    addTextRows<OdDbAttributeDefinition>(cases);
    addAttributeRows<OdDbAttributeDefinition>(cases);
    CompareCasesOf<OdDbAttributeDefinition>{cases}
        .exact("prompt", [](OdDbAttributeDefinition& e) { e.setPrompt(L"other"); })
        .exact("fieldLength", [](OdDbAttributeDefinition& e) { e.setFieldLength(7); });
    addMTextRows(cases);
    addReferenceRows<OdDbBlockReference>(cases);
    CompareCasesOf<OdDbBlockReference>{cases}
        .exact("textString", [](OdDbBlockReference& e) { partOf<OdDbAttribute>(e, 1)->setTextString(L"red"); })
        .exact(L"Incorrect number of attributes", "attributes1.size() == attributes2.size()",
               [](OdDbBlockReference& e) { partOf<OdDbAttribute>(e, 1)->erase(); });
    addReferenceRows<OdDbMInsertBlock>(cases);
    CompareCasesOf<OdDbMInsertBlock>{cases}
        .exact("columns", [](OdDbMInsertBlock& e) { e.setColumns(4); })
        .exact("rows", [](OdDbMInsertBlock& e) { e.setRows(3); })
        .near("columnSpacing", [](OdDbMInsertBlock& e, double d) { e.setColumnSpacing(10 + d); })
        .near("rowSpacing", [](OdDbMInsertBlock& e, double d) { e.setRowSpacing(20 + d); });
}
