#pragma once

#include "host/db/od_db_database.h"
#include "tests/host/dxf/random_record.h"

/// A drawing of random content: objects of every class that the host knows and of classes that it does not know,
/// sections and tables that it does not know, header variables, comments. Equal seeds give equal drawings. Throws
/// OdError for a class of which nobody says where its objects stand.
OdDbDatabasePtr randomDrawing(std::uint64_t seed, EOddities oddities = EOddities::kAnywhere);
