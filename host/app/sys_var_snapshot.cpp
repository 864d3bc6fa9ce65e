#include "host/app/sys_var_snapshot.h"

#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/sys_var_value.h"

namespace ca {

namespace {

std::vector<SysVar const*> settableVariables(ESysVarKeeper keeper)
{
    std::vector<SysVar const*> variables;
    for (SysVar const& each : SysVar::list())
        if (each.keeper() == keeper && !each.isReadOnly())
            variables.push_back(&each);
    return variables;
}

/// By name.
std::vector<SysVar const*> const& settable(ESysVarKeeper keeper)
{
    static std::vector<SysVar const*> const s_variables[] = {settableVariables(ESysVarKeeper::kDrawing),
                                                             settableVariables(ESysVarKeeper::kDocument),
                                                             settableVariables(ESysVarKeeper::kApplication)};
    return s_variables[static_cast<std::size_t>(keeper)];
}

std::vector<SysVarValue> valuesOf(ESysVarKeeper keeper, CaDoc const* doc)
{
    std::vector<SysVarValue> values;
    for (SysVar const* const variable : settable(keeper))
        values.push_back(variable->value(doc));
    return values;
}

template <class Visit>
void visitDocumentChanges(ESysVarKeeper keeper, std::vector<SysVarValue> const& before, CaDoc* doc, Visit visit)
{
    std::vector<SysVar const*> const& variables = settable(keeper);
    for (std::size_t i = 0; i < variables.size(); ++i)
        if (SysVarValue const now = variables[i]->value(doc); !sysVarIsSame(before[i], now))
            visit(*variables[i], before[i], now, doc);
}

template <class Visit>
void visitApplicationChanges(SysVarStore::Values const& before, Visit visit)
{
    if (before.empty() && app()->variables().values().empty())
        return;
    for (SysVar const* const variable : settable(ESysVarKeeper::kApplication)) {
        auto const it = before.find(&variable->row());
        SysVarValue const then = it == before.end() ? variable->defaultValue() : it->second;
        if (SysVarValue const now = variable->value(); !sysVarIsSame(then, now))
            visit(*variable, then, now, nullptr);
    }
}

SysVarDifference difference(SysVar const& variable, SysVarValue const& before, SysVarValue const& after,
                            CaDoc const* doc)
{
    return {variable.name(), SysVar::toText(before), SysVar::toText(after), doc ? doc->title() : OdString()};
}

} // namespace

void SysVarSnapshot::take()
{
    m_application = app()->variables().values();
    std::vector<DocumentValues> documents;
    for (int i = 0; i < app()->getDocumentsCount(); ++i) {
        CaDoc const& doc = *app()->getDocument(i);
        DocumentValues values;
        DocumentValues const* const known = find(doc);
        std::uint64_t const changeCount = doc.database()->changeCount();
        values.serial = doc.serial();
        values.changeCount = changeCount;
        values.drawing =
            known && known->changeCount == changeCount ? known->drawing : valuesOf(ESysVarKeeper::kDrawing, &doc);
        values.document = valuesOf(ESysVarKeeper::kDocument, &doc);
        documents.push_back(std::move(values));
    }
    m_documents = std::move(documents);
}

SysVarSnapshot::DocumentValues const* SysVarSnapshot::find(CaDoc const& doc) const
{
    auto const it = std::ranges::find(m_documents, doc.serial(), &DocumentValues::serial);
    return it == m_documents.end() ? nullptr : &*it;
}

/// Calls visit(variable, before, after, document) for every variable with another value.
template <class Visit>
void SysVarSnapshot::visitChanges(Visit visit) const
{
    visitApplicationChanges(m_application, visit);
    for (int i = 0; i < app()->getDocumentsCount(); ++i) {
        CaDoc* const doc = app()->getDocument(i);
        DocumentValues const* const known = find(*doc);
        if (!known)
            continue;
        if (known->changeCount != doc->database()->changeCount())
            visitDocumentChanges(ESysVarKeeper::kDrawing, known->drawing, doc, visit);
        visitDocumentChanges(ESysVarKeeper::kDocument, known->document, doc, visit);
    }
}

std::vector<SysVarDifference> SysVarSnapshot::differences() const
{
    std::vector<SysVarDifference> found;
    visitChanges(
        [&found](SysVar const& variable, SysVarValue const& before, SysVarValue const& after, CaDoc* doc) {
            if (!variable.isRemembered())
                found.push_back(difference(variable, before, after, doc));
        });
    std::ranges::stable_sort(found, {}, &SysVarDifference::name);
    return found;
}

std::vector<SysVarDifference> SysVarSnapshot::restore()
{
    std::vector<SysVarDifference> refused;
    visitChanges(
        [&refused](SysVar const& variable, SysVarValue const& before, SysVarValue const& after, CaDoc* doc) {
            if (!variable.set(before, doc))
                refused.push_back(difference(variable, before, after, doc));
        });
    return refused;
}

} // namespace ca
