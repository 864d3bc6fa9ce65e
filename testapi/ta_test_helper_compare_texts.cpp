// Comparison of texts, attributes and block references.
#include "testapi/ge_angle.h"
#include "testapi/ta_comparison_rows.h"
#include "testapi/ta_test_helper.h"

#include <cmath>
#include <map>

namespace ta {

namespace {

/// Much tighter than lengths are compared: a text turned by less is the same text.
bool isEqualAngle(double a, double b)
{
    return ge::isEqualAngle(a, b, 1e-10);
}

// clang-format off
constexpr Row<OdDbText> s_textRows[] = {
    NEAR(normal), NEAR(position), NEAR(alignmentPoint), NEAR(thickness),
    {TA_CODE_CHECK(L"Oblique angles are different", isEqualAngle(pEnt1->oblique(), pEnt2->oblique())),
     [](OdDbText const* pEnt1, OdDbText const* pEnt2, Check const& check, Comparison& comparison) {
         return comparison.holds(isEqualAngle(pEnt1->oblique(), pEnt2->oblique()), pEnt1->oblique(),
                                 pEnt2->oblique(), check);
     }},
    {TA_CODE_CHECK(L"Rotation angles are different", isEqualAngle(a1, a2)),
     [](OdDbText const* pEnt1, OdDbText const* pEnt2, Check const& check, Comparison& comparison) {
         double a1 = pEnt1->rotation(), a2 = pEnt2->rotation();
         ge::normalizeAngles(a1, a2);
         return comparison.holds(isEqualAngle(a1, a2), pEnt1->rotation(), pEnt2->rotation(), check);
     }},
    NEAR(height), NEAR(widthFactor), EXACT(isMirroredInX), EXACT(isMirroredInY), EXACT(horizontalMode),
    EXACT(verticalMode), EXACT(textStyle), EXACT(textString),
};

constexpr Row<OdDbMText> s_mtextRows[] = {
    NEAR(normal), NEAR(location), NEAR(direction),
    {{nullptr, L"Incorrect rotation value", __LINE__},
     [](OdDbMText const* pp1, OdDbMText const* pp2, Check const& check, Comparison& comparison) {
         // Rotations follow from directions: on either side of the X axis they lie a turn apart.
         double const turns = std::round((pp1->rotation() - pp2->rotation()) / Oda2PI);
         return comparison.near(pp1->rotation(), pp2->rotation() + turns * Oda2PI, comparison.options().eps, check);
     }},
    NEAR(width), NEAR(textHeight), EXACT(attachment), EXACT(horizontalMode), EXACT(verticalMode),
    EXACT(contents), EXACT(textStyle),
};

constexpr Row<OdDbAttributeBase> s_attributeRows[] = {
    EXACT(tag), EXACT(isInvisible), EXACT(isConstant), EXACT(isVerifiable), EXACT(isPreset),
    EXACT(lockPositionInBlock),
};

constexpr Row<OdDbAttributeDefinition> s_definitionRows[] = {EXACT(prompt), EXACT(fieldLength)};

constexpr Row<OdDbBlockReference> s_blockReferenceRows[] = {
    NEAR(normal), NEAR(position), NEAR(scaleFactors), NEAR(rotation), EXACT(blockTableRecord),
};

constexpr Row<OdDbMInsertBlock> s_minsertRows[] = {
    EXACT(columns), EXACT(rows), NEAR(columnSpacing), NEAR(rowSpacing),
};

constexpr Row<OdDbEntity> s_annotativeRows[] = {ANNOTATIVE};

constexpr Row<OdDbAttributeBase> s_multilineRows[] = {EXACT(isMTextAttribute)};
// clang-format on

void compareAnnotative(OdDbEntity const* pp1, OdDbEntity const* pp2, Comparison& comparison)
{
    checkRows(s_annotativeRows, pp1, pp2, comparison);
}

void compareAttributes(OdDbAttributeBase const* pp1, OdDbAttributeBase const* pp2, Comparison& comparison)
{
    checkRows<OdDbText>(s_textRows, pp1, pp2, comparison);
    checkRows(s_multilineRows, pp1, pp2, comparison);
    if (pp1->isMTextAttribute() && pp2->isMTextAttribute()) {
        OdDbMTextPtr const text1 = pp1->getMTextAttribute(), text2 = pp2->getMTextAttribute();
        checkRows<OdDbMText>(s_mtextRows, text1.get(), text2.get(), comparison);
    }
    checkRows(s_attributeRows, pp1, pp2, comparison);
}

/// The attributes of a block reference, those of one tag in their order.
using AttributesByTag = std::multimap<OdString, OdDbAttribute const*>;

AttributesByTag attributesOf(OdDbBlockReference const* pp)
{
    AttributesByTag attributes;
    for (OdDbPartIterator it = pp->attributeIterator(); !it.done(); it.step()) {
        auto const& attribute = static_cast<OdDbAttribute const&>(it.peek());
        attributes.emplace(attribute.tag().upper(), &attribute);
    }
    return attributes;
}

/// Attributes are paired by tag, whatever their order; tags that only one reference has differ as such.
void compareOwnAttributes(OdDbBlockReference const* pp1, OdDbBlockReference const* pp2, Comparison& comparison)
{
    if (pp1->numParts() == 0 && pp2->numParts() == 0)
        return;
    AttributesByTag const attributes1 = attributesOf(pp1), attributes2 = attributesOf(pp2);
    if (!comparison.exact(
            attributes1.size(), attributes2.size(),
            TA_CODE_CHECK(L"Incorrect number of attributes", attributes1.size() == attributes2.size())))
        return;
    int number = 1;
    for (auto it1 = attributes1.begin(), it2 = attributes2.begin(); it1 != attributes1.end(); ++it1, ++it2) {
        Comparison::Part const part(comparison, L"attribute", number++);
        comparison.entities(*it1->second, *it2->second);
    }
}

void compareReferences(OdDbBlockReference const* pp1, OdDbBlockReference const* pp2, Comparison& comparison)
{
    checkRows(s_blockReferenceRows, pp1, pp2, comparison);
}

/// Calls a comparison that ends the test at the first difference.
template <class T, class Compare>
void compareOrFail(OdDbEntity const* pEnt1, OdDbEntity const* pEnt2, Compare const& compare)
{
    FailingSink failing;
    Comparison comparison(failing, {});
    // Checked by odCastOrThrow: entities of another class are a mistake of the test, not a difference.
    auto const* const pp1 = odCastOrThrow<T>(const_cast<OdDbEntity*>(pEnt1));
    auto const* const pp2 = odCastOrThrow<T>(const_cast<OdDbEntity*>(pEnt2));
    if (!pp1 || !pp2)
        throw OdError(eNullObjectId);
    compare(pp1, pp2, comparison);
}

} // namespace

void compareProperties(OdDbMText const* pp1, OdDbMText const* pp2, Comparison& comparison)
{
    checkRows(s_mtextRows, pp1, pp2, comparison);
    compareAnnotative(pp1, pp2, comparison);
}

void compareProperties(OdDbText const* pp1, OdDbText const* pp2, Comparison& comparison)
{
    checkRows(s_textRows, pp1, pp2, comparison);
    compareAnnotative(pp1, pp2, comparison);
}

void compareProperties(OdDbAttribute const* pp1, OdDbAttribute const* pp2, Comparison& comparison)
{
    compareAttributes(pp1, pp2, comparison);
    compareAnnotative(pp1, pp2, comparison);
}

void compareProperties(OdDbAttributeDefinition const* pp1, OdDbAttributeDefinition const* pp2,
                       Comparison& comparison)
{
    compareAttributes(pp1, pp2, comparison);
    checkRows(s_definitionRows, pp1, pp2, comparison);
    compareAnnotative(pp1, pp2, comparison);
}

void compareProperties(OdDbBlockReference const* pp1, OdDbBlockReference const* pp2, Comparison& comparison)
{
    compareReferences(pp1, pp2, comparison);
    compareOwnAttributes(pp1, pp2, comparison);
}

void compareProperties(OdDbMInsertBlock const* pp1, OdDbMInsertBlock const* pp2, Comparison& comparison)
{
    compareReferences(pp1, pp2, comparison);
    checkRows(s_minsertRows, pp1, pp2, comparison);
    compareOwnAttributes(pp1, pp2, comparison);
}

void compareTextFields(OdDbText const* pEnt1, OdDbText const* pEnt2)
{
    compareOrFail<OdDbText>(pEnt1, pEnt2, [](auto const* pp1, auto const* pp2, Comparison& comparison) {
        checkRows(s_textRows, pp1, pp2, comparison);
    });
}

void compareMTextEnts(OdDbEntity const* pEnt1, OdDbEntity const* pEnt2)
{
    compareOrFail<OdDbMText>(pEnt1, pEnt2, [](auto const* pp1, auto const* pp2, Comparison& comparison) {
        checkRows(s_mtextRows, pp1, pp2, comparison);
    });
}

void compareAsBlockRef(OdDbEntity const* pEnt1, OdDbEntity const* pEnt2)
{
    compareOrFail<OdDbBlockReference>(pEnt1, pEnt2, &compareReferences);
}

} // namespace ta
