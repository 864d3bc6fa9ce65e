#pragma once

#include "host/db/filer/od_db_tag.h"

namespace dxf {

/// Tags on their way into a drawing file, whatever form it has.
class FileSink : public OdDbTagSink
{
public:
    /// Hands everything on; has to be called in the end.
    virtual void flush() = 0;
};

} // namespace dxf
