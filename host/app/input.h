#pragma once

#include "host/db/od_db_selection_set.h"
#include "host/geom/od_ge_3d.h"
#include "host/sds/sds.h"

#include <optional>
#include <variant>
#include <vector>

namespace ca {

/// One answer as it comes in, before a prompt has made sense of it. Points are in the current user coordinate
/// system.
struct Input
{
    struct Enter
    {
    };
    std::variant<Enter, OdString, double, std::int64_t, OdGePoint3d, OdDbSelectionSetPtr, OdDbObjectId> value;

    static Input ofText(OdString text);
    bool isEnter() const { return std::holds_alternative<Enter>(value); }
    OdString const* text() const { return std::get_if<OdString>(&value); }
    /// As the command line shows it behind the prompt.
    OdString shown() const;
};

/// The answers of a result-buffer list. None when the list holds a type that cannot be an answer, or the name of a
/// selection set or an entity that does not exist.
std::optional<std::vector<Input>> inputsFrom(sds_resbuf const* list);

} // namespace ca
