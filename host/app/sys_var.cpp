#include "host/app/sys_var.h"

#include "host/app/ca_app.h"
#include "host/app/ca_doc.h"
#include "host/app/sys_var_store.h"
#include "host/app/sys_var_table.h"
#include "host/app/sys_var_value.h"

namespace ca {

namespace {

std::vector<SysVar> sortedVariables()
{
    std::vector<SysVarRow const*> rows;
    for (SysVarRow const& row : sysVarTable())
        rows.push_back(&row);
    std::ranges::sort(rows, {}, [](SysVarRow const* row) { return row->name; });
    std::vector<SysVar> variables;
    variables.reserve(rows.size());
    for (SysVarRow const* const row : rows)
        variables.emplace_back(*row);
    return variables;
}

SysVarValue headerValue(SysVarRow const& row, OdDbHeader const& header)
{
    switch (row.type) {
    case ESysVarType::kBool: return header.integer(row.name, static_cast<int>(row.x)) != 0 ? 1 : 0;
    case ESysVarType::kShort:
    case ESysVarType::kInt: return static_cast<int>(header.integer(row.name, static_cast<int>(row.x)));
    case ESysVarType::kReal: return header.real(row.name, row.x);
    case ESysVarType::kPoint2: return header.point(row.name).convert2d();
    case ESysVarType::kPoint3: return header.point(row.name);
    case ESysVarType::kString: return header.text(row.name);
    }
    return {};
}

void setHeaderValue(SysVarRow const& row, OdDbDatabase& drawing, SysVarValue const& value)
{
    if (auto const* const integer = std::get_if<int>(&value))
        drawing.setHeaderInteger(row.name, row.code, *integer);
    else if (auto const* const real = std::get_if<double>(&value))
        drawing.setHeaderReal(row.name, row.code, *real);
    else if (auto const* const point2 = std::get_if<OdGePoint2d>(&value))
        drawing.setHeaderPoint(row.name, OdGePoint3d(point2->x, point2->y, 0), 2);
    else if (auto const* const point3 = std::get_if<OdGePoint3d>(&value))
        drawing.setHeaderPoint(row.name, *point3);
    else
        drawing.setHeaderText(row.name, row.code, std::get<OdString>(value));
}

/// For values that neither the header nor a getter gives.
auto& storeOf(SysVarRow const& row, auto* doc)
{
    return row.keeper == ESysVarKeeper::kDocument ? doc->variables() : app()->variables();
}

bool isOfDocument(SysVarRow const& row)
{
    return row.keeper != ESysVarKeeper::kApplication;
}

/// The default when a damaged drawing lacks what holds the value.
SysVarValue foundOut(SysVarRow const& row, CaDoc const* doc)
{
    try {
        return row.getter(doc);
    } catch (OdError const&) {
        return sysVarDefault(row);
    }
}

/// Runs a setter; its error becomes the reason.
template <class Function>
bool succeeds(Function function, OdString* reason)
{
    try {
        function();
        return true;
    } catch (OdError const& error) {
        if (reason)
            *reason = error.description();
        return false;
    }
}

} // namespace

SysVar const* SysVar::find(OdString const& name)
{
    std::string const wanted = name.upper().toUtf8();
    std::span<SysVar const> const all = list();
    auto const it = std::ranges::lower_bound(all, wanted, {}, [](SysVar const& each) { return each.m_row->name; });
    return it != all.end() && it->m_row->name == wanted ? &*it : nullptr;
}

std::span<SysVar const> SysVar::list()
{
    static std::vector<SysVar> const s_variables = sortedVariables();
    return s_variables;
}

OdString SysVar::name() const
{
    return OdString::fromUtf8(m_row->name);
}

ESysVarType SysVar::type() const
{
    return m_row->type;
}

ESysVarKeeper SysVar::keeper() const
{
    return m_row->keeper;
}

bool SysVar::isReadOnly() const
{
    return m_row->isReadOnly;
}

bool SysVar::isRemembered() const
{
    return m_row->isRemembered;
}

SysVarValue SysVar::defaultValue() const
{
    return sysVarDefault(*m_row);
}

SysVarValue SysVar::value(CaDoc const* doc) const
{
    SysVarRow const& row = *m_row;
    CaDoc const* const asked = doc ? doc : curDoc();
    if (isOfDocument(row) && !asked)
        return defaultValue();
    if (row.getter)
        return foundOut(row, asked);
    if (row.code != 0) {
        OdDbHeader const& header = asked->database()->header();
        return header.find(row.name) ? headerValue(row, header) : defaultValue();
    }
    SysVarValue const* const kept = storeOf(row, asked).find(row);
    return kept ? *kept : defaultValue();
}

bool SysVar::set(SysVarValue const& value, CaDoc* doc, OdString* reason) const
{
    return succeeds([&] { assign(value, doc); }, reason);
}

void SysVar::assign(SysVarValue const& value, CaDoc* doc) const
{
    SysVarRow const& row = *m_row;
    CaDoc* const asked = doc ? doc : curDoc();
    if (row.isReadOnly)
        throw OdError(eNotApplicable, name() + L" is read-only.");
    if (isOfDocument(row) && !asked)
        throw OdError(eNoDocument, L"No drawing is open.");
    SysVarValue const checked = sysVarChecked(row, value);
    if (sysVarIsSame(checked, this->value(asked)))
        return;
    if (row.setter)
        row.setter(asked, checked);
    else if (row.code != 0)
        setHeaderValue(row, *asked->database(), checked);
    else
        storeOf(row, asked).set(row, checked);
}

bool SysVar::setText(OdString const& text, CaDoc* doc, OdString* reason) const
{
    return succeeds([&] { assign(sysVarFromText(*m_row, text), doc); }, reason);
}

OdString SysVar::toText(SysVarValue const& value)
{
    return sysVarToText(value);
}

} // namespace ca
