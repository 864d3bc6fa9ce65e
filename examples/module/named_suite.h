#pragma once

#include <cppunit/TestCaller.h>
#include <cppunit/TestSuite.h>

#include <initializer_list>

template <class Fixture>
struct NamedTest
{
    char const* name;
    void (Fixture::*test)();
};

/// A suite under names that read as sentences in the reports. It belongs to the caller.
template <class Fixture>
CppUnit::TestSuite* namedSuite(char const* name, std::initializer_list<NamedTest<Fixture>> tests)
{
    auto* const suite = new CppUnit::TestSuite(name);
    for (NamedTest<Fixture> const& test : tests)
        suite->addTest(new CppUnit::TestCaller<Fixture>(test.name, test.test));
    return suite;
}
