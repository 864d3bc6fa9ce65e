#include "host/app/ca_osnap_store.h"

#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"

#include <utility>

namespace ca {

namespace {

struct Setting
{
    wchar_t const* variable;
    bool isModes; ///< bits that are the snaps themselves; 0 switches all off
};

constexpr Setting kSettings[] = {
    {L"OSMODE", true}, {L"3DOSMODE", true}, {L"AUTOSNAP", false}, {L"OSNAPCOORD", false}};

} // namespace

void OsnapStore::store(CaDoc* doc, int switchOff)
{
    if (m_values.empty()) {
        m_doc = doc ? doc : curDoc();
        for (Setting const& setting : kSettings)
            m_values.push_back(SysVar::find(setting.variable)->value(m_doc));
    }
    if (!switchOff)
        return;
    for (Setting const& setting : kSettings)
        if (setting.isModes)
            SysVar::find(setting.variable)->set(0, m_doc);
}

void OsnapStore::restore()
{
    std::vector<SysVarValue> const values = std::exchange(m_values, {});
    CaDoc* const doc = app()->hasDocument(m_doc) ? m_doc : nullptr; // it may have been closed meanwhile
    for (std::size_t i = 0; i < values.size(); ++i)
        SysVar::find(kSettings[i].variable)->set(values[i], doc);
}

} // namespace ca
