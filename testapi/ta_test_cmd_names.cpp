// Names and handles of entities, in the drawing under test and in a reference drawing.
#include "testapi/ta_assert.h"
#include "testapi/ta_test_cmd.h"

#include <algorithm>
#include <unordered_set>

namespace ta {

namespace {

constexpr char s_area[] = "testapi/ta_test_cmd";

OdDbObjectId objectIdOfHandle(OdDbDatabase& database, OdString const& handle)
{
    OdDbObjectId const id = database.getOdDbObjectId(OdDbHandle(handle));
    TA_CHECK(id.isValid(), L"Invalid handle: %ls", handle.c_str());
    return id;
}

OdString attributeText(pugi::xml_node node, wchar_t const* handleAttr)
{
    OdString handle;
    TA_CHECK(oa::readAttr(node, handleAttr, handle));
    return handle;
}

/// The names taken so far; looked up often in long lists.
class Names
{
public:
    bool contains(OdString const& name) const { return m_known.contains(name); }
    bool empty() const { return m_names.empty(); }
    void append(OdString const& name)
    {
        m_known.insert(name);
        m_names.append(name);
    }
    OdArray<OdString> const& inOrder() const { return m_names; }

private:
    OdArray<OdString> m_names;
    std::unordered_set<OdString> m_known;
};

} // namespace

OdArray<OdString> TestCmdArg::tokenizeNamesString(OdString const& list)
{
    Names names;
    // A comma at the end goes with the last name.
    for (std::size_t begin = 0; begin < list.getLength();) {
        std::size_t const comma = std::min(list.find(L',', begin), list.getLength());
        OdString const token = list.mid(begin, comma - begin);
        begin = comma + 1;
        TA_CHECK(!token.isEmpty(), L"Entity name cannot be empty");
        TA_CHECK(!names.contains(token), L"Entity name cannot be duplicated");
        names.append(token);
    }
    TA_CHECK(!names.empty(), L"Entity list cannot be empty");
    return names.inOrder();
}

void TestCmdArg::nameAddedEntities(OdArray<OdString> const& names)
{
    OdDbDatabasePtr const database = curDb();
    if (database.isNull())
        throw OdError(eNoDocument);
    if (m_namedDatabases.empty() || m_namedDatabases.back().get() != database.get())
        m_namedDatabases.push_back(database);
    OdDbBlockTableRecordPtr const modelSpace = database->getModelSpaceId().open<OdDbBlockTableRecord>();
    OdDbObjectIterator it = modelSpace->newIterator(false, true);
    OdDbObjectIterator* const pIt = &it;
    for (std::size_t i = names.size(); i-- > 0; pIt->step(false, true)) {
        TA_CHECK(!pIt->done(), L"Entities in DWG do not match with entity list provided");
        m_namedObjectIds[names[i]] = pIt->objectId();
    }
}

void TestCmdArg::nameAddedEntities(OdString const& list)
{
    nameAddedEntities(tokenizeNamesString(list));
}

OdDbObjectId TestCmdArg::getObjectId(OdString const& nameOrHandle) const
{
    if (auto const named = m_namedObjectIds.find(nameOrHandle); named != m_namedObjectIds.end())
        return named->second;
    if (!curDb())
        throw OdError(eNoDocument);
    return objectIdOfHandle(*curDb(), nameOrHandle);
}

OdDbObjectId TestCmdArg::getObjectId(pugi::xml_node node, wchar_t const* handleAttr) const
{
    return getObjectId(attributeText(node, handleAttr));
}

OdDbObjectId TestCmdArg::ReferenceContext::getObjectId(OdString const& handle) const
{
    static constexpr std::wstring_view s_prefix = L"REF_";
    TA_CHECK(m_referenceDb);
    // Looking up a handle changes nothing, only creating one would.
    OdDbDatabase& database = const_cast<OdDbDatabase&>(*m_referenceDb);
    return objectIdOfHandle(database, handle.startsWith(s_prefix) ? handle.mid(s_prefix.size()) : handle);
}

OdDbObjectId TestCmdArg::ReferenceContext::getObjectId(pugi::xml_node node, wchar_t const* handleAttr) const
{
    return getObjectId(attributeText(node, handleAttr));
}

} // namespace ta
