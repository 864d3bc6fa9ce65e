#pragma once

#include "host/app/sys_var.h"

#include <vector>

namespace ca {

/// Puts the object snaps (OSMODE, 3DOSMODE, AUTOSNAP, OSNAPCOORD) aside and brings them back. What is not restored
/// stays as it is when the object goes.
class OsnapStore
{
public:
    OsnapStore() = default;
    OsnapStore(OsnapStore const&) = delete;
    OsnapStore& operator=(OsnapStore const&) = delete;

    /// Remembers the settings of the document, null for the current one; with `switchOff`, no object snap is on
    /// from now on. Settings that are remembered already are not replaced: restore() goes back to the first ones.
    void store(CaDoc* doc = nullptr, int switchOff = 0);
    /// Brings the settings back and forgets them; nothing happens when none are remembered.
    void restore();

private:
    CaDoc* m_doc = nullptr;
    std::vector<SysVarValue> m_values; ///< in the order of the variables; empty when none are remembered
};

} // namespace ca
