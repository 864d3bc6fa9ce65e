#pragma once

#include "testapi/ta_test_cmd.h"
#include "tests/support/temp_folder.h"

#include <cppunit/Exception.h>

#include <functional>

/// The text with a folder shown as "@".
inline std::string withoutFolder(std::string text, std::string const& folder)
{
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at))
        text.replace(at, folder.size(), "@");
    return text;
}

/// The failure of a call as one text: its messages separated by "|", or the text of an OdError; empty when it
/// passes.
inline std::string failureOf(std::function<void()> const& call)
{
    try {
        call();
    } catch (CppUnit::Exception const& failure) {
        CppUnit::Message const message = failure.message();
        std::string text = message.shortDescription();
        for (int i = 0; i < message.detailCount(); ++i)
            text += "|" + message.detailAt(i);
        return text;
    } catch (OdError const& error) {
        return std::string("OdError|") + error.what();
    }
    return {};
}

/// A folder in which command tests are run as the bench runs them, each from a file of its own.
class CmdTestFolder : public TempFolder
{
public:
    /// Set-up, test and tear-down of a test with this XML text; gives the first failure as failureOf().
    std::string run(std::string const& xml, std::function<void(ta::TestCmdArg&)> const& afterwards = {}) const
    {
        return runAs<ta::TestCmdArg>(xml, afterwards);
    }
    template <class Test>
    std::string runAs(std::string const& xml, std::function<void(Test&)> const& afterwards = {}) const
    {
        Test test(write("t.xml", xml).str());
        std::string const failure = failureOf([&] {
            test.setUp();
            test.runTest();
        });
        if (afterwards)
            afterwards(test);
        test.tearDown();
        return withoutFolder(failure, path().string());
    }
};
