#include "host/db/od_db_header.h"

OdDbHeader::Data& OdDbHeader::edit()
{
    if (m_data.use_count() > 1)
        m_data = std::make_shared<Data>(*m_data);
    return *m_data;
}

OdDbHeader::Variable const* OdDbHeader::find(std::string_view name) const
{
    auto const it = m_data->index.find(name);
    return it == m_data->index.end() ? nullptr : &m_data->variables[it->second];
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
    Data& data = edit();
    auto const [it, isNew] = data.index.try_emplace(std::string(name), data.variables.size());
    if (isNew)
        data.variables.push_back({std::string(name), {}});
    std::swap(data.variables[it->second].tags, tags);
    return tags;
}

void OdDbHeader::remove(std::string_view name)
{
    Data& data = edit();
    std::erase_if(data.variables, [name](Variable const& variable) { return variable.name == name; });
    data.index.clear();
    for (std::size_t i = 0; i < data.variables.size(); ++i)
        data.index.emplace(data.variables[i].name, i);
}
