// The runner of every test program here: runs the registered CppUnit tests whose path contains one of the
// arguments (all without arguments) and prints one line per failure, clickable in editors.
#include <cppunit/BriefTestProgressListener.h>
#include <cppunit/CompilerOutputter.h>
#include <cppunit/Test.h>
#include <cppunit/TestPath.h>
#include <cppunit/TestResult.h>
#include <cppunit/TestResultCollector.h>
#include <cppunit/extensions/TestFactoryRegistry.h>

#include <iostream>
#include <memory>
#include <string>

namespace {

bool isSelected(std::string const& name, int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        if (name.find(argv[i]) != std::string::npos)
            return true;
    return argc == 1;
}

int runSelected(CppUnit::Test& test, CppUnit::TestResult& result, int argc, char** argv)
{
    if (test.getChildTestCount() == 0) {
        if (!isSelected(test.getName(), argc, argv))
            return 0;
        test.run(&result);
        return 1;
    }
    int count = 0;
    for (int i = 0; i < test.getChildTestCount(); ++i)
        count += runSelected(*test.getChildTestAt(i), result, argc, argv);
    return count;
}

} // namespace

int main(int argc, char** argv)
{
    std::unique_ptr<CppUnit::Test> const tests(CppUnit::TestFactoryRegistry::getRegistry().makeTest());
    CppUnit::TestResult result;
    CppUnit::TestResultCollector collector;
    result.addListener(&collector);
    CppUnit::BriefTestProgressListener progress;
    result.addListener(&progress);
    int const count = runSelected(*tests, result, argc, argv);
    CppUnit::CompilerOutputter(&collector, std::cout, "%p:%l: ").write();
    if (count == 0) {
        std::cerr << "no test selected\n";
        return 1;
    }
    return collector.wasSuccessful() ? 0 : 1;
}
