// What makes the library a test module. The suites beside register themselves.
#include <cppunit/plugin/TestPlugIn.h>

CPPUNIT_PLUGIN_IMPLEMENT();
