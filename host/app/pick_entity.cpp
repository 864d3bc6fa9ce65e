#include "host/app/pick_entity.h"

#include "host/app/selection_finder.h"
#include "host/db/oa_space.h"

namespace ca {

namespace {

constexpr wchar_t const* kLast = L"Last";

OdDbObjectId entityOf(Editor& editor, Answer const& answer)
{
    if (answer.isKeyword())
        return SelectionFinder(editor.doc()).last();
    if (!answer.selection.isNull())
        return answer.selection->numEntities() > 0 ? answer.selection->at(0) : OdDbObjectId();
    return answer.entity.isNull() ? SelectionFinder(editor.doc()).at(answer.point) : answer.entity;
}

bool isInSpace(Editor& editor, OdDbObjectId id)
{
    if (id.isErased())
        return false;
    auto const* const entity = odCast<OdDbEntity>(id.stub()->object);
    return entity && entity->ownerId() == oa::getActiveSpace(&editor.db());
}

} // namespace

Task<PickedEntity> pickEntity(Editor& editor, Prompt prompt)
{
    PickedEntity picked;
    prompt.hiddenKeywords(prompt.allHiddenKeywords() + L" " + kLast);
    picked.answer = co_await editor.selection(prompt);
    if (!picked.answer.isValue() && !picked.answer.isKeyword(kLast))
        co_return picked;
    picked.id = entityOf(editor, picked.answer);
    if (!isInSpace(editor, picked.id))
        throw AnswerRejected(L"No object found.");
    co_return picked;
}

void refuseLocked(OdDbObjectId entity)
{
    if (isOnLockedLayer(entity))
        throw AnswerRejected(L"The object is on a locked layer.");
}

} // namespace ca
