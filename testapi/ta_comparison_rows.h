#pragma once

// For those who add a class to the comparison of entities: a row is one property, with its check and its message.
// A class has a table of rows and, for what rows cannot say (vertices, loops), tail functions beside it; the order
// of checks is that of the table. The tables stand in ta_test_helper_compare_*.cpp, the list of classes in
// ta_test_helper_compare.cpp.

#include "testapi/ta_comparison.h"

namespace ta {

/// `pp1` is the actual entity, `pp2` the expected one.
template <class T>
struct Row
{
    Check check;
    bool (*agrees)(T const* pp1, T const* pp2, Check const& check, Comparison& comparison);
};

/// Goes through all rows; false when one of them did not agree.
template <class T, std::size_t N>
bool checkRows(Row<T> const (&rows)[N], T const* pp1, T const* pp2, Comparison& comparison)
{
    bool agree = true;
    for (Row<T> const& row : rows)
        agree &= row.agrees(pp1, pp2, row.check, comparison);
    return agree;
}

/// @name Comparisons of what makes up each class, beyond the common properties
/// @{
void compareProperties(OdDbPoint const* pp1, OdDbPoint const* pp2, Comparison& comparison);
void compareProperties(OdDbLine const* pp1, OdDbLine const* pp2, Comparison& comparison);
void compareProperties(OdDbArc const* pp1, OdDbArc const* pp2, Comparison& comparison);
void compareProperties(OdDbCircle const* pp1, OdDbCircle const* pp2, Comparison& comparison);
void compareProperties(OdDbMText const* pp1, OdDbMText const* pp2, Comparison& comparison);
void compareProperties(OdDbSolid const* pp1, OdDbSolid const* pp2, Comparison& comparison);
void compareProperties(OdDbBlockReference const* pp1, OdDbBlockReference const* pp2, Comparison& comparison);
void compareProperties(OdDbMInsertBlock const* pp1, OdDbMInsertBlock const* pp2, Comparison& comparison);
void compareProperties(OdDb2dVertex const* pp1, OdDb2dVertex const* pp2, Comparison& comparison);
void compareProperties(OdDb2dPolyline const* pp1, OdDb2dPolyline const* pp2, Comparison& comparison);
void compareProperties(OdDb3dPolylineVertex const* pp1, OdDb3dPolylineVertex const* pp2, Comparison& comparison);
void compareProperties(OdDb3dPolyline const* pp1, OdDb3dPolyline const* pp2, Comparison& comparison);
void compareProperties(OdDbPolyline const* pp1, OdDbPolyline const* pp2, Comparison& comparison);
void compareProperties(OdDbSpline const* pp1, OdDbSpline const* pp2, Comparison& comparison);
void compareProperties(OdDbEllipse const* pp1, OdDbEllipse const* pp2, Comparison& comparison);
void compareProperties(OdDbAttribute const* pp1, OdDbAttribute const* pp2, Comparison& comparison);
void compareProperties(OdDbAttributeDefinition const* pp1, OdDbAttributeDefinition const* pp2,
                       Comparison& comparison);
void compareProperties(OdDbText const* pp1, OdDbText const* pp2, Comparison& comparison);
void compareProperties(OdDbRay const* pp1, OdDbRay const* pp2, Comparison& comparison);
void compareProperties(OdDbXline const* pp1, OdDbXline const* pp2, Comparison& comparison);
void compareProperties(OdDbPolyFaceMesh const* pp1, OdDbPolyFaceMesh const* pp2, Comparison& comparison);
void compareProperties(OdDbPolygonMesh const* pp1, OdDbPolygonMesh const* pp2, Comparison& comparison);
/// @}

} // namespace ta

// A macro captures the source text of a check and where it stands; the functions of Comparison decide and format.
// clang-format off
#define TA_TEXT_OF_CODE(...) #__VA_ARGS__

/// A check of which code and text are the same: what the row evaluates is what failures show.
#define TA_CODE_CHECK(message, ...) ta::Check{TA_TEXT_OF_CODE(__VA_ARGS__), message, __LINE__}

/// The property is equal.
#define EXACT(property)                                                                                           \
    {{TA_TEXT_OF_CODE(pp1-> property () == pp2-> property ()), L"Incorrect " #property " value", __LINE__},       \
     [](auto const* pp1, auto const* pp2, ta::Check const& check, ta::Comparison& comparison) {                   \
         return comparison.exact(pp1-> property (), pp2-> property (), check);                                    \
     }}

#define TA_NEAR_ROW(property, allowed)                                                                            \
    {{nullptr, L"Incorrect " #property " value", __LINE__},                                                       \
     [](auto const* pp1, auto const* pp2, ta::Check const& check, ta::Comparison& comparison) {                   \
         return comparison.near(pp1-> property (), pp2-> property (), comparison.options().allowed, check);       \
     }}
/// The property agrees within the library's tolerance, or within `relTolerance`.
#define NEAR(property)  TA_NEAR_ROW(property, eps)
#define NEAR2(property) TA_NEAR_ROW(property, relTolerance)
/// The entities are both annotative, or neither is.
#define ANNOTATIVE                                                                                                \
    {TA_CODE_CHECK(L"Incorrect Annotative value", isAnno1 == isAnno2),                                            \
     [](auto const* pp1, auto const* pp2, ta::Check const& check, ta::Comparison& comparison) {                   \
         bool const isAnno1 = OdDbAnnotativeObjectPE::isAnnotative(pp1);                                          \
         bool const isAnno2 = OdDbAnnotativeObjectPE::isAnnotative(pp2);                                          \
         return comparison.exact(isAnno1, isAnno2, check);                                                        \
     }}
// clang-format on
