#include "host/app/name_list.h"

#include "host/app/editor.h"
#include "host/ut/ut_text.h"

#include <algorithm>
#include <unordered_set>

namespace ca {

namespace {

OdString trimmed(OdString const& text)
{
    std::wstring_view rest = text.str();
    while (rest.starts_with(L' '))
        rest.remove_prefix(1);
    while (rest.ends_with(L' '))
        rest.remove_suffix(1);
    return OdString(rest);
}

bool isPattern(OdString const& name)
{
    return name.spanExcluding(L"*?").getLength() != name.getLength();
}

bool matches(OdString const& name, OdString const& entry)
{
    return ut::matchesWildcard(name.str(), entry.str(), ut::ECase::kInsensitive);
}

std::vector<OdDbObjectId> recordsOfPattern(OdDbSymbolTable const& table, OdString const& pattern)
{
    std::vector<OdDbObjectId> found;
    for (OdDbStub* const stub : table.records())
        if (!stub->erased && matches(static_cast<OdDbSymbolTableRecord const*>(stub->object)->getName(), pattern))
            found.emplace_back(stub);
    return found;
}

} // namespace

std::vector<OdString> namesOfList(OdString const& list)
{
    std::vector<OdString> names;
    for (OdString rest = list; !rest.isEmpty();) {
        OdString const entry = rest.spanExcluding(L",");
        rest.deleteChars(0, entry.getLength() + 1);
        if (OdString const name = trimmed(entry); !name.isEmpty())
            names.push_back(name);
    }
    return names;
}

std::vector<OdDbObjectId> recordsOfList(OdDbSymbolTable const& table, OdString const& list, wchar_t const* what)
{
    std::vector<OdDbObjectId> records;
    std::unordered_set<OdDbObjectId> taken;
    for (OdString const& name : namesOfList(list)) {
        OdDbObjectId const exact = table.getAt(name);
        std::vector<OdDbObjectId> const found =
            exact.isNull() ? recordsOfPattern(table, name) : std::vector<OdDbObjectId>{exact};
        if (found.empty())
            throw AnswerRejected(
                odFormat(isPattern(name) ? L"%ls \"%ls\": nothing matches." : L"%ls \"%ls\" does not exist.", what,
                         name.c_str()));
        for (OdDbObjectId const id : found)
            if (taken.insert(id).second)
                records.push_back(id);
    }
    if (records.empty())
        throw AnswerRejected(L"A name is required.");
    return records;
}

bool isInList(OdString const& name, OdString const& list)
{
    std::vector<OdString> const names = namesOfList(list);
    return std::ranges::any_of(names, [&](OdString const& entry) { return matches(name, entry); });
}

} // namespace ca
