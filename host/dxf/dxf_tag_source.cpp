#include "host/dxf/dxf_tag_source.h"

namespace dxf {

void TagSource::fail(OdString const& reason, std::size_t line) const
{
    throw OdError(eInvalidFile,
                  odFormat(L"%ls:%lld: %ls", m_path.c_str(), static_cast<long long>(line), reason.c_str()));
}

} // namespace dxf
