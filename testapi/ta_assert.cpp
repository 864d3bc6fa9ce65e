#include "testapi/ta_assert.h"

#include <cppunit/Asserter.h>
#include <cppunit/Message.h>
#include <cppunit/SourceLine.h>

#include <cstdlib>

namespace ta {

namespace {

[[noreturn]] void fail(CppUnit::Message const& message, Place place)
{
    CppUnit::Asserter::fail(message, CppUnit::SourceLine(place.area, place.line));
    std::abort(); // the asserter always throws, but its declaration does not say so
}

} // namespace

void failCheck(char const* expression, OdString const& message, Place place)
{
    CppUnit::Message text("assertion failed", std::string("Expression: ") + expression);
    if (!message.isEmpty())
        text.addDetail(message.toUtf8());
    fail(text, place);
}

void failForced(OdString const& text, Place place)
{
    fail(CppUnit::Message("forced failure", text.toUtf8()), place);
}

} // namespace ta
