#pragma once

#include "host/db/entities/od_db_poly_face_mesh.h"

namespace ca {

/// The records that make up a face with any number of corners. A face of more than four is cut into pieces whose
/// common edges are hidden. Corners are numbers of vertices from 1, negative where the edge that leaves them is
/// hidden.
std::vector<OdDbFaceRecordPtr> polyfaceRecords(std::vector<int> const& corners);

} // namespace ca
