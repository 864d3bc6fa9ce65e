#include "host/ut/ut_stop_watch.h"

#include <cppunit/extensions/HelperMacros.h>

namespace {

/// Time passes only by sleeping.
class StillClock : public ut::Clock
{
public:
    double now() override { return m_now; }
    void sleep(unsigned long milliseconds) override { m_now += static_cast<double>(milliseconds); }

private:
    double m_now = 1000.25;
};

class StopWatchTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(StopWatchTest);
    CPPUNIT_TEST(measuresTheClockInPlace);
    CPPUNIT_TEST(systemClockSleepsAtLeastAsLong);
    CPPUNIT_TEST_SUITE_END();

    void measuresTheClockInPlace()
    {
        StillClock still;
        ut::ScopedReplacement<ut::Clock> const replacement(still);
        ut::StopWatch watch;
        ut::milliSleep(3600000);
        CPPUNIT_ASSERT_EQUAL(3600000.0, watch.time());
        watch.restart();
        CPPUNIT_ASSERT_EQUAL(0.0, watch.time());
        {
            StillClock inner;
            ut::ScopedReplacement<ut::Clock> const innerReplacement(inner);
            ut::milliSleep(5);
        }
        CPPUNIT_ASSERT_EQUAL(0.0, watch.time());
    }

    void systemClockSleepsAtLeastAsLong()
    {
        ut::StopWatch const watch;
        ut::milliSleep(2);
        CPPUNIT_ASSERT(watch.time() >= 2.0);
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(StopWatchTest);

} // namespace
