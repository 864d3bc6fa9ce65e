#include "host/db/tdx_modeler.h"

#include "host/db/od_db_entity.h"

#include <algorithm>

namespace tdx {

namespace {

std::vector<Modeler const*>& installedModelers()
{
    static std::vector<Modeler const*> s_modelers;
    return s_modelers;
}

} // namespace

Modeler const* getModeler(OdDbEntity const* entity)
{
    if (!entity)
        return nullptr;
    std::vector<Modeler const*> const& modelers = installedModelers();
    auto const found =
        std::ranges::find_if(modelers, [entity](Modeler const* each) { return each->canHandle(*entity); });
    return found == modelers.end() ? nullptr : *found;
}

ModelerInstallation::ModelerInstallation(Modeler const& modeler) : m_modeler(modeler)
{
    installedModelers().push_back(&m_modeler);
}

ModelerInstallation::~ModelerInstallation()
{
    std::vector<Modeler const*>& modelers = installedModelers();
    if (auto const own = std::ranges::find(modelers, &m_modeler); own != modelers.end())
        modelers.erase(own);
}

} // namespace tdx
