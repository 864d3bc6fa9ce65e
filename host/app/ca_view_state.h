#pragma once

#include "host/db/od_db_object_id.h"

namespace ca {

/// What the active view remembers of the entity under the cursor. A view installs its own with
/// CaApp::setCurrentViewState.
class ViewState
{
public:
    virtual ~ViewState() = default;
    /// Forgets what is remembered and remembers this entity instead; the null id for none. Called with it after
    /// entities were rolled back, since the remembered one may not exist any more.
    virtual void reset(OdDbObjectId entity) = 0;
};

} // namespace ca
