#include "apps/vornbench/data_file_warnings.h"

#include <cppunit/extensions/HelperMacros.h>

class TestDataFileWarnings : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(TestDataFileWarnings);
    CPPUNIT_TEST(eachIsToldOnce);
    CPPUNIT_TEST(manyAreCounted);
    CPPUNIT_TEST_SUITE_END();

    std::optional<DataFileWarnings> m_warnings;

    static void note(int line, wchar_t const* text)
    {
        ta::DataFileObserver::current()->noted({L"data.xml", line, text});
    }
    std::string taken()
    {
        std::string all;
        for (std::string const& warning : m_warnings->take())
            all += warning + "\n";
        return all;
    }

public:
    void setUp() override { m_warnings.emplace(); }
    void tearDown() override { m_warnings.reset(); }

    void eachIsToldOnce()
    {
        note(0, L"no data are read");
        note(7, L"left out");
        note(7, L"left out");
        note(7, L"passed over");
        CPPUNIT_ASSERT_EQUAL(std::string("data.xml:1: warning: no data are read\ndata.xml:7: warning: left out\n"
                                         "data.xml:7: warning: passed over\n"),
                             taken());
        note(7, L"left out"); // the file is read again
        CPPUNIT_ASSERT_EQUAL(std::string(), taken());
    }

    void manyAreCounted()
    {
        for (int line = 1; line <= 500; ++line)
            note(line, line % 2 == 0 ? L"left out" : L"passed over");
        std::string const told = taken();
        CPPUNIT_ASSERT_EQUAL(22, static_cast<int>(std::ranges::count(told, '\n')));
        CPPUNIT_ASSERT(told.ends_with("data.xml:500: warning: left out (and 240 more)\n"
                                      "data.xml:499: warning: passed over (and 240 more)\n"));
        note(500, L"left out");
        note(501, L"left out");
        CPPUNIT_ASSERT_EQUAL(std::string("data.xml:501: warning: left out (and 1 more)\n"), taken());
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestDataFileWarnings);
