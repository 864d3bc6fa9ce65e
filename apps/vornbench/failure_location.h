#pragma once

#include "apps/vornbench/test_outcome.h"

#include <cppunit/TestFailure.h>

/// The failure as the bench reports it. Its location is the line of the failing operation where the messages name
/// one, else the file that the test was made from, else the line of code.
TestFailureRecord failureRecord(CppUnit::TestFailure const& failure, CatalogEntry const& entry);

/// Where a test comes from when nothing better is known: the first line of its file.
FileLocation testLocation(CatalogEntry const& entry);

/// The path relative to the working folder when it lies below it.
std::string shownPath(std::string const& path);
