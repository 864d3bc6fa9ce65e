#include "host/db/od_db_header.h"

OdDbHeader::Variable const* OdDbHeader::find(std::string_view name) const
{
    if (m_index.size() != m_variables.size()) {
        m_index.clear();
        for (std::size_t i = 0; i < m_variables.size(); ++i)
            m_index[m_variables[i].name] = i;
    }
    auto const it = m_index.find(std::string(name));
    return it == m_index.end() ? nullptr : &m_variables[it->second];
}

double OdDbHeader::real(std::string_view name, double fallback) const
{
    Variable const* const variable = find(name);
    if (!variable || variable->tags.empty())
        return fallback;
    OdDbTag const tag = *variable->tags.begin();
    return tag.kind == OdDbTagKind::kReal ? tag.real : fallback;
}

std::int64_t OdDbHeader::integer(std::string_view name, std::int64_t fallback) const
{
    Variable const* const variable = find(name);
    if (!variable || variable->tags.empty())
        return fallback;
    OdDbTag const tag = *variable->tags.begin();
    return tag.kind == OdDbTagKind::kInteger || tag.kind == OdDbTagKind::kHandle ? tag.integer : fallback;
}

OdString OdDbHeader::text(std::string_view name) const
{
    Variable const* const variable = find(name);
    return variable && !variable->tags.empty() ? OdString::fromUtf8((*variable->tags.begin()).text) : OdString();
}

OdGePoint3d OdDbHeader::point(std::string_view name) const
{
    double coordinates[3] = {0, 0, 0};
    if (Variable const* const variable = find(name))
        for (OdDbTag const tag : variable->tags)
            if (tag.kind == OdDbTagKind::kReal && tag.code >= 10 && tag.code < 40)
                coordinates[tag.code / 10 - 1] = tag.real;
    return {coordinates[0], coordinates[1], coordinates[2]};
}

OdDbTagList OdDbHeader::set(std::string_view name, OdDbTagList tags)
{
    if (auto* const variable = const_cast<Variable*>(find(name))) {
        std::swap(variable->tags, tags);
        return tags;
    }
    m_variables.push_back({std::string(name), std::move(tags)});
    return {};
}

void OdDbHeader::remove(std::string_view name)
{
    std::erase_if(m_variables, [name](Variable const& variable) { return variable.name == name; });
    m_index.clear();
}
