#include "host/root/od_array.h"

#include <cppunit/extensions/HelperMacros.h>

#include <functional>
#include <limits>
#include <utility>

namespace {

class OdArrayTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(OdArrayTest);
    CPPUNIT_TEST(badIndexChangesNothing);
    CPPUNIT_TEST(growthFailure);
    CPPUNIT_TEST(insertsAndRemoves);
    CPPUNIT_TEST(appendsItself);
    CPPUNIT_TEST(finds);
    CPPUNIT_TEST_SUITE_END();

    using Array = OdArray<int>;

    static OdResult codeOf(std::function<void()> const& action)
    {
        try {
            action();
        } catch (OdError const& error) {
            return error.code();
        }
        return eOk;
    }

    void badIndexChangesNothing()
    {
        Array array = {1, 2, 3};
        Array empty;
        auto const minusOne = static_cast<std::size_t>(-1);
        std::function<void()> const actions[] = {
            [&] { array[3] = 0; },
            [&] { array[minusOne] = 0; },
            [&] { array.insertAt(4, 0); },
            [&] { array.removeAt(3); },
            [&] { array.removeSubArray(1, 3); },
            [&] { array.removeSubArray(2, 1); },
            [&] { array.removeSubArray(minusOne, minusOne); },
            [&] { empty.first() = 0; },
            [&] { empty.last() = 0; },
            [&] { empty.removeFirst(); },
            [&] { empty.removeLast(); },
            [&] { static_cast<void>(std::as_const(array)[3]); },
        };
        for (auto const& action : actions)
            CPPUNIT_ASSERT_EQUAL(eInvalidIndex, codeOf(action));
        CPPUNIT_ASSERT((array == Array{1, 2, 3}));
        CPPUNIT_ASSERT(empty.isEmpty());
    }

    void growthFailure()
    {
        Array array = {1};
        std::size_t const tooMany = std::numeric_limits<std::size_t>::max() / 2;
        CPPUNIT_ASSERT_EQUAL(eCreationFailed, codeOf([&] { array.resize(tooMany); }));
        CPPUNIT_ASSERT_EQUAL(eCreationFailed, codeOf([&] { array.reserve(tooMany); }));
        CPPUNIT_ASSERT((array == Array{1}));
    }

    void insertsAndRemoves()
    {
        Array array = {1, 2, 3, 4, 5};
        array.removeSubArray(1, 3).insertAt(2, 6).insertAt(0, 0);
        CPPUNIT_ASSERT((array == Array{0, 1, 5, 6}));
        array.removeFirst().removeLast().reverse();
        CPPUNIT_ASSERT((array == Array{5, 1}));
        array.removeSubArray(0, 1);
        CPPUNIT_ASSERT(array.empty());
    }

    void appendsItself()
    {
        Array array = {1, 2};
        array.append(array).append(array[0]).append(array);
        CPPUNIT_ASSERT((array == Array{1, 2, 1, 2, 1, 1, 2, 1, 2, 1}));
    }

    void finds()
    {
        Array const array = {3, 4, 4};
        std::size_t index = 99;
        CPPUNIT_ASSERT(!array.find(5, index));
        CPPUNIT_ASSERT_EQUAL(std::size_t{99}, index);
        CPPUNIT_ASSERT(array.find(4, index));
        CPPUNIT_ASSERT_EQUAL(std::size_t{1}, index);
        CPPUNIT_ASSERT(array.contains(3) && !array.contains(0));
    }
};
CPPUNIT_TEST_SUITE_REGISTRATION(OdArrayTest);

} // namespace
