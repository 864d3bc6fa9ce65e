#pragma once

#include "host/root/od_string.h"

namespace ca {

/// Settings of the user that are not system variables. They live as long as the application; a run writes nothing
/// into the user's profile.
class AppPreferences
{
public:
    /// Folder of plot style tables; may be empty.
    OdString const& get_PlotStylePath() const { return m_plotStylePath; }
    void set_PlotStylePath(OdString const& folder) { m_plotStylePath = folder; }
    /// Relative accuracy of mass properties.
    double massPropAccuracy() const { return 1e-12; }

private:
    OdString m_plotStylePath;
};

AppPreferences& preferences();

} // namespace ca
