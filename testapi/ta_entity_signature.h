#pragma once

// For the matching of entities: numbers that equal entities have in common, whatever drawing they are in.

#include "testapi/ta_host.h"
#include "testapi/ta_nearest_boxes.h"

#include <optional>
#include <unordered_map>

namespace ta {

/// Mixes a further value into a hash.
std::uint64_t mixedHash(std::uint64_t hash, std::uint64_t value);

/// What an entity with its parts (vertices, attributes) is made of. Handles and extended data are left out.
struct EntitySignature
{
    std::uint64_t exact = 0; ///< hash of texts, whole numbers and names of records
    double measure = 0;      ///< sum of all reals, each with a weight of its own of up to 1
};
EntitySignature signatureOf(OdDbEntity const& entity);

/// Hash of the class; of the name in files for entities that are only kept.
std::uint64_t kindOf(OdDbEntity const& entity);

/// Where an entity is: its extents or, for block references and endless curves, its points. None for entities that
/// are only kept.
std::optional<BoxCorners> placeOf(OdDbEntity const& entity);

/// Hashes of the names of layers, made once for each layer.
class LayerHashes
{
public:
    std::uint64_t of(OdDbEntity const& entity);

private:
    std::unordered_map<OdDbStub const*, std::uint64_t> m_hashes;
};

} // namespace ta
