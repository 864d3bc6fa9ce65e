#pragma once

#include "host/db/od_db_database.h"
#include "host/dxf/dxf_release.h"
#include "host/dxf/dxf_save_report.h"

namespace dxf {

/// What every part of the translation into an older release has to know.
struct LowerContext
{
    LowerContext(OdDbDatabase const& drawing, ERelease release, SaveReport& notes);

    /// "<subject>: <what> needs <release>; left out".
    void noteLeftOut(std::string_view subject, OdString const& what, ERelease first, OdDbHandle handle) const;
    wchar_t const* targetName() const { return releaseOf(target).name; }

    OdDbDatabase const& database;
    ERelease target;
    /// Of the file that the drawing came from; the current one for new drawings.
    ERelease origin;
    SaveReport& report;
};

} // namespace dxf
