#pragma once

#include <cppunit/TestAssert.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

/// Compares a text with the file of expected text, given relative to the root of the sources. To accept a change,
/// run the test with VORN_ACCEPT=1 in the environment, which rewrites the file, and look at the difference.
inline void assertApproved(std::string const& expectedFile, std::string const& text)
{
    std::string const path = std::string(VORN_SOURCE_DIR) + "/" + expectedFile;
    if (std::getenv("VORN_ACCEPT"))
        std::ofstream(path, std::ios::binary) << text;
    std::ifstream file(path, std::ios::binary);
    std::string const expected{std::istreambuf_iterator<char>(file), {}};
    CPPUNIT_ASSERT_EQUAL_MESSAGE("differs from " + expectedFile, expected, text);
}
