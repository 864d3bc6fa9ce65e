#pragma once

#include "host/db/filer/od_db_tag_list.h"
#include "host/sds/ca_resbuf.h"
#include "host/sds/sds_names.h"

#include <optional>
#include <string>

// Chains of result buffers as records of drawing files, and back. One node is one group, but for two kinds: a
// node holds a whole point, where files have a group for each coordinate, and angles (groups 50 to 58) are
// radians, where files have degrees.

namespace ca {

/// A record that came as a chain.
struct SdsRecord
{
    std::string type; ///< group 0, in capitals; empty when there is none
    /// All other groups in their order, without those that say where an entity stands and what the drawing gives
    /// itself: handle, owner, layout, reactors, extension dictionary. Points have three coordinates.
    OdDbTagList tags;
    std::optional<bool> isInPaperSpace; ///< group 67
};

/// The first group -1 of a chain; null when there is none.
SdsName entityNameIn(sds_resbuf const* chain);

/// Nothing for a chain that cannot be a record: types of nodes that are no group codes, values that are not finite
/// or no handle, texts that are null, extended data without the name of its application or in front of other
/// groups, names of objects of another drawing, a chain without end.
std::optional<SdsRecord> recordOf(sds_resbuf const* chain, OdDbDatabase const& database);

/// The groups of one record as a chain; references become names of objects of the drawing. Null when memory is
/// short or there is no group with a kind of value.
RbListPtr chainOf(OdDbTagList const& tags, OdDbDatabase& database);

/// The value of a group of kind real as chains have it: angles in radians.
double realInChain(OdDbTag const& tag);

/// A chain that grows at its end.
class SdsChain
{
public:
    /// Null, when memory is short, makes the whole chain null. False when nothing was appended: then the node is
    /// gone.
    bool append(sds_resbuf* node);
    void append(RbListPtr list);
    RbListPtr take();

private:
    RbListPtr m_head;
    sds_resbuf* m_last = nullptr;
    bool m_isMemoryShort = false;
};

} // namespace ca
