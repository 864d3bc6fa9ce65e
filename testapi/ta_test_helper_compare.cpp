// Which entities are equal: the classes that are known, and what all entities have in common.
#include "testapi/ta_comparison_rows.h"
#include "testapi/ta_test_helper.h"

#include <unordered_map>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_test_helper";

/// Entities outside of drawings often name no linetype, which means the same.
bool isByLayer(OdDbObjectId linetype)
{
    return linetype.isNull() || linetype == linetype.database()->getLinetypeByLayerId();
}

// clang-format off
constexpr Row<OdDbEntity> s_commonRows[] = {
    EXACT(color), EXACT(layerId),
    {{"pp1-> linetypeId () == pp2-> linetypeId ()", L"Incorrect linetypeId value", __LINE__},
     [](OdDbEntity const* pp1, OdDbEntity const* pp2, Check const& check, Comparison& comparison) {
         OdDbObjectId const id1 = pp1->linetypeId(), id2 = pp2->linetypeId();
         return (isByLayer(id1) && isByLayer(id2)) || comparison.exact(id1, id2, check);
     }},
    NEAR(linetypeScale), EXACT(lineWeight),
};
// clang-format on

using CompareFunction = void (*)(OdDbEntity const*, OdDbEntity const*, Comparison&);

struct KnownClass
{
    OdRxClass::DescFunction desc;
    CompareFunction compare;
};

template <class T>
constexpr KnownClass known()
{
    return {&T::desc, [](OdDbEntity const* pEnt1, OdDbEntity const* pEnt2, Comparison& comparison) {
                compareProperties(static_cast<T const*>(pEnt1), static_cast<T const*>(pEnt2), comparison);
            }};
}

/// Each stands for exactly itself: a class derived from one of these is another class.
constexpr KnownClass s_knownClasses[] = {
    known<OdDbPoint>(),
    known<OdDbLine>(),
    known<OdDbArc>(),
    known<OdDbCircle>(),
    known<OdDbMText>(),
    known<OdDbSolid>(),
    known<OdDbBlockReference>(),
    known<OdDbMInsertBlock>(),
    known<OdDb2dVertex>(),
    known<OdDb2dPolyline>(),
    known<OdDb3dPolylineVertex>(),
    known<OdDb3dPolyline>(),
    known<OdDbPolyline>(),
    known<OdDbSpline>(),
    known<OdDbEllipse>(),
    known<OdDbAttribute>(),
    known<OdDbAttributeDefinition>(),
    known<OdDbText>(),
    known<OdDbRay>(),
    known<OdDbXline>(),
    known<OdDbPolyFaceMesh>(),
    known<OdDbPolygonMesh>(),
};

/// Null for a class that is not known.
CompareFunction compareFunctionOf(OdRxClass const* entityClass)
{
    static auto const s_index = [] {
        std::unordered_map<OdRxClass const*, CompareFunction> index;
        for (KnownClass const& entry : s_knownClasses)
            index.emplace(entry.desc(), entry.compare);
        return index;
    }();
    auto const found = s_index.find(entityClass);
    return found == s_index.end() ? nullptr : found->second;
}

} // namespace

bool Comparison::knows(OdRxClass const* entityClass)
{
    return compareFunctionOf(entityClass) != nullptr;
}

void Comparison::entities(OdDbEntity const& entity1, OdDbEntity const& entity2)
{
    OdDbEntity const *const pEnt1 = &entity1, *const pEnt2 = &entity2;
    if (!holds(pEnt1->isA() == pEnt2->isA(), TA_CODE_CHECK(L"Wrong entity type", pEnt1->isA() == pEnt2->isA())))
        return;
    if (!m_options.skipCommonProps)
        checkRows(s_commonRows, pEnt1, pEnt2, *this);
    if (CompareFunction const compare = compareFunctionOf(pEnt1->isA()))
        return compare(pEnt1, pEnt2, *this);
    OdString const message =
        odFormat(L"Comparison of %ls entities is not implemented", pEnt1->isA()->name().c_str());
    holds(false, TA_CODE_CHECK(message.c_str(), false));
}

void TestHelperEx::compareEntities(OdDbEntity const* pEnt1, OdDbEntity const* pEnt2, bool skipCommonProps,
                                   double tolerance, double relTolerance, char const* file, int line)
{
    TA_CHECK(pEnt1 && pEnt2, L"compareEntities: an entity is missing");
    FailingSink failing({pEnt1, pEnt2, file, line});
    Comparison(failing, {skipCommonProps, tolerance, relTolerance, s_eps}).entities(*pEnt1, *pEnt2);
}

} // namespace ta
