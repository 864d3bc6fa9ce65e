#include "host/dxf/dxf_tag_source.h"

namespace dxf {

void TagSource::fail(OdString const& reason, std::size_t place) const
{
    throw OdError(eInvalidFile, m_path + placeText(place) + L": " + reason);
}

} // namespace dxf
