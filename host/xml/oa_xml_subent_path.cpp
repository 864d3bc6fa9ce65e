#include "host/xml/oa_xml.h"

#include "host/db/od_db_database.h"

#include <algorithm>

namespace oa {

namespace {

wchar_t const s_entities[] = L"entities";
wchar_t const s_type[] = L"type";
wchar_t const s_index[] = L"index";

struct TypeWord
{
    wchar_t const* word;
    OdDb::SubentType type;
};
constexpr TypeWord s_typeWords[] = {
    {L"none", OdDb::kNullSubentType},
    {L"face", OdDb::kFaceSubentType},
    {L"edge", OdDb::kEdgeSubentType},
    {L"vertex", OdDb::kVertexSubentType},
};

OdArray<OdString> splitAtCommas(OdString const& list)
{
    OdArray<OdString> parts;
    for (std::size_t begin = 0; begin <= list.getLength();) {
        std::size_t const end = std::min(list.find(L',', begin), list.getLength());
        parts.append(list.mid(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

/// The reasons of failures; empty: no failure.
OdString readPart(pugi::xml_node node, OdDbSubentId& part)
{
    OdString word = s_typeWords[0].word;
    readAttr(node, s_type, word);
    TypeWord const* const known =
        std::ranges::find_if(s_typeWords, [&](TypeWord const& row) { return word == row.word; });
    if (known == std::end(s_typeWords))
        return odFormat(L"type '%ls' is none of none, face, edge, vertex", word.c_str());
    part.type = known->type;
    if (node.attribute(s_index) && (!readAttr(node, s_index, part.index) || part.index < 0))
        return odFormat(L"index '%ls' is not a number from 0", node.attribute(s_index).value());
    return {};
}

OdString findEntity(OdString const& text, OdDbDatabase& database, std::map<OdString, OdDbObjectId> const* namedIds,
                    OdDbObjectId& id)
{
    if (text.isEmpty())
        return L"an empty name among the entities";
    bool isNamed = false;
    if (namedIds) {
        auto const named = namedIds->find(text);
        isNamed = named != namedIds->end();
        if (isNamed)
            id = named->second;
    }
    if (!isNamed)
        id = database.getOdDbObjectId(OdDbHandle(text));
    if (!id.isValid())
        return odFormat(L"'%ls' is neither a name nor a handle of the drawing", text.c_str());
    if (id.database() != &database)
        return odFormat(L"'%ls' belongs to another drawing", text.c_str());
    if (id.isErased())
        return odFormat(L"'%ls' is erased", text.c_str());
    return {};
}

OdString readPath(pugi::xml_node node, OdDbDatabase* database, std::map<OdString, OdDbObjectId> const* namedIds,
                  OdArray<OdString>& names, OdDbFullSubentPath& path)
{
    OdString list;
    if (!readAttr(node, s_entities, list) || list.isEmpty())
        return L"attribute 'entities' is missing or empty";
    if (!database)
        return L"there is no drawing";
    names = splitAtCommas(list);
    OdArray<OdDbObjectId> ids;
    for (OdString const& name : names) {
        OdDbObjectId id;
        if (OdString reason = findEntity(name, *database, namedIds, id); !reason.isEmpty())
            return reason;
        ids.append(id);
    }
    OdDbSubentId part;
    if (OdString reason = readPart(node, part); !reason.isEmpty())
        return reason;
    path = OdDbFullSubentPath(std::move(ids), part);
    return {};
}

} // namespace

bool read(pugi::xml_node const& node, OdDbDatabase* database, OdDbFullSubentPath& path, OdString* error,
          OdArray<OdString>* names, std::map<OdString, OdDbObjectId> const* namedIds)
{
    OdArray<OdString> texts;
    OdString const reason = readPath(node, database, namedIds, texts, path);
    if (!reason.isEmpty()) {
        if (error)
            *error = reason;
        return false;
    }
    if (names)
        *names = std::move(texts);
    return true;
}

bool write(pugi::xml_node node, OdDbFullSubentPath const& path)
{
    if (path.objectIds().empty())
        return false;
    OdString entities;
    for (OdDbObjectId const id : path.objectIds())
        entities += (entities.isEmpty() ? L"" : L",") + id.getHandle().ascii();
    if (!writeAttr(node, s_entities, entities))
        return false;
    node.remove_attribute(s_type);
    node.remove_attribute(s_index);
    OdDbSubentId const part = path.subentId();
    if (part == OdDbSubentId())
        return true;
    return writeAttr(node, s_type, s_typeWords[part.type].word) && writeAttr(node, s_index, part.index);
}

} // namespace oa
