// Whatever commands do to a drawing, the fixture takes it back: the drawing is saved as it was before, byte for
// byte.
#include "host/app/command_processor.h"
#include "host/dxf/dxf_file.h"
#include "testapi/ta_resbuf.h"
#include "testapi/ta_test_helper.h"
#include "tests/host/app/document_fixture.h"
#include "tests/testapi/random_commands.h"

#include <cppunit/extensions/HelperMacros.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace {

int numberFromEnvironment(char const* name, int otherwise)
{
    char const* const text = std::getenv(name);
    return text ? std::atoi(text) : otherwise;
}

/// RTNORM when the command ended by itself.
int run(std::vector<OdString> const& answers)
{
    sds_resbuf* list = nullptr;
    for (OdString const& answer : answers)
        ta::rbAppend(list, ca::allocRb(answer.c_str()));
    ca::RbListPtr const owner(list);
    int const status = sds_cmd(list);
    if (ca::CommandProcessor::get().isIdle())
        return status;
    sds_cmd(nullptr);
    return RTCAN;
}

OdString shown(std::vector<OdString> const& answers)
{
    OdString text;
    for (OdString const& answer : answers)
        text += answer + L"|";
    return text;
}

std::string saved()
{
    return dxf::writeBytes(*ca::curDb(), {});
}

/// Lines with which two texts begin to differ.
std::string firstDifference(std::string const& a, std::string const& b)
{
    auto const [at, other] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    auto const begin = static_cast<std::size_t>(at - a.begin());
    std::size_t const from = begin > 200 ? begin - 200 : 0;
    return "before: ..." + a.substr(from, 300) + "\nafter: ..." + b.substr(from, 300);
}

} // namespace

class TestFixtureRollback : public DocumentFixture
{
    CPPUNIT_TEST_SUITE(TestFixtureRollback);
    CPPUNIT_TEST(testRandomCommandsInANewDrawing);
    CPPUNIT_TEST(testRandomCommandsInRealDrawings);
    CPPUNIT_TEST_SUITE_END();

    int m_commands = 0, m_ended = 0;

    void runAndRollBack(unsigned seed, std::string const& where, int commands)
    {
        std::string const before = saved();
        std::uint64_t const changes = ca::curDb()->changeCount();
        RandomCommands random(seed);
        std::string history;
        ta::TestHelperEx fixture(seed % 2 ? ta::TestHelper::kAllOptions : 0);
        fixture.setUpDefault(false);
        for (int i = 0; i < commands; ++i) {
            std::vector<OdString> const answers = random.next();
            int const status = run(answers);
            history += shown(answers).toUtf8() + (status == RTNORM ? "\n" : " (refused)\n");
            ++m_commands;
            m_ended += status == RTNORM;
        }
        CPPUNIT_ASSERT(ca::curDb()->changeCount() != changes);
        fixture.tearDownDefault();
        std::string const after = saved();
        if (before != after)
            CPPUNIT_FAIL(where + ", seed " + std::to_string(seed) + "\n" + history +
                         firstDifference(before, after));
    }

    void testRandomCommandsInANewDrawing()
    {
        // Two fixtures after one another, the second in what commands drew before: there is something to be
        // edited.
        int const seeds = numberFromEnvironment("VORN_RANDOM_COUNT", 30);
        auto const first = static_cast<unsigned>(numberFromEnvironment("VORN_RANDOM_SEED", 1));
        for (unsigned seed = first; seed < first + static_cast<unsigned>(seeds); ++seed) {
            ca::app()->openFile();
            RandomCommands random(seed + 1000);
            for (int i = 0; i < 20; ++i)
                run(random.next());
            runAndRollBack(seed, "new drawing", 40);
            runAndRollBack(seed + 500, "new drawing, second test", 10);
            ca::curDoc()->close();
        }
        CPPUNIT_ASSERT_MESSAGE(std::to_string(m_ended) + " of " + std::to_string(m_commands) + " commands ended",
                               m_ended * 2 > m_commands);
    }

    void testRandomCommandsInRealDrawings()
    {
        char const* const corpus = std::getenv("VORN_CORPUS");
        if (!corpus) {
            std::cout << "skipped: VORN_CORPUS names no folder of real drawings\n";
            return;
        }
        unsigned seed = 7;
        for (wchar_t const* const name : {L"entities_R2010.dxf", L"uncommon.dxf", L"sample_AC1009_ascii.dxf",
                                          L"multi_insert_with_attribs.dxf", L"netdxf_sample_ascii.dxf"}) {
            OdString const path = OdString::fromUtf8(corpus) + L"/dxf/" + name;
            CPPUNIT_ASSERT(ca::app()->openFile(path.c_str()));
            runAndRollBack(++seed, path.toUtf8(), 30);
            ca::curDoc()->close();
        }
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(TestFixtureRollback);
