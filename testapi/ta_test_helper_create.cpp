#include "testapi/ta_test_helper_create.h"

#include "testapi/ta_assert.h"
#include "testapi/ta_test_helper.h"

#include <cmath>

namespace ta {

namespace {

constexpr char const* s_area = "testapi/ta_test_helper";

} // namespace

std::optional<OdGeVector3d> NormalRule::in(OdDbBlockTableRecord const& owner) const
{
    OdGeVector3d const* const chosen = given ? given : inLayouts && owner.isLayout() ? inLayouts : nullptr;
    if (!chosen)
        return std::nullopt;
    if (chosen->isZeroLength() || !std::isfinite(chosen->length()))
        throw OdError(eDegenerateGeometry, L"A normal of zero or infinite length is no direction");
    return chosen->normal();
}

OdDbObjectId TestHelperEx::appendEntity(OdDbEntity* entity)
{
    if (!entity)
        throw OdError(eInvalidInput, L"There is no entity to append");
    OdDbEntityPtr keep(entity);
    OdDbObjectId const id = appendTo(oa::getActiveSpace(&db()), [&](OdDbBlockTableRecord const&) { return keep; });
    TA_CHECK(!id.isNull(), L"Failed %ls creation", entity->isA()->name().c_str());
    return id;
}

void TestHelperEx::getTransformedCopy(OdDbEntity const* entity, OdGeMatrix3d const& matrix,
                                      OdSmartPtr<OdDbEntity>& copy)
{
    if (!entity)
        throw OdError(eInvalidInput, L"There is no entity to copy");
    OdDbEntityPtr const transformed(entity->clone());
    OdResult const res = transformed->transformBy(matrix);
    TA_CHECK(res == eOk, L"Entity transformation failed");
    if (auto* const definition = odCast<OdDbAttributeDefinition>(transformed.get());
        definition && definition->isMTextAttribute())
        definition->updateMTextAttributeDefinition();
    copy = transformed;
}

} // namespace ta
