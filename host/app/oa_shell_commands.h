#pragma once

#include "host/root/od_string.h"

#include <optional>

namespace oa {

/// Which commands take their text answers as they stand, because these are file names or free text: a backslash in
/// them is a backslash. Beside the commands of the command line the table knows some that this application lacks
/// and that scripts use all the same.
class ShellCommandTable
{
public:
    /// By name or alias, without regard to case: whether the command takes texts as they stand; nothing for a
    /// name that is no command's.
    std::optional<bool> find(OdString const& name) const;
};

} // namespace oa
