#pragma once

#include "testapi/ta_test_cmd.h"
#include "tests/support/temp_folder.h"

#include <cppunit/Exception.h>

#include <functional>

/// The failure of a call as one text: its messages separated by "|", or the text of an OdError; empty when it
/// passes. The folder given is shown as "@".
inline std::string failureOf(std::function<void()> const& call, std::string const& folder = "")
{
    std::string text;
    try {
        call();
    } catch (CppUnit::Exception const& failure) {
        CppUnit::Message const message = failure.message();
        text = message.shortDescription();
        for (int i = 0; i < message.detailCount(); ++i)
            text += "|" + message.detailAt(i);
    } catch (OdError const& error) {
        text = std::string("OdError|") + error.what();
    }
    if (!folder.empty())
        for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at))
            text.replace(at, folder.size(), "@");
    return text;
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
        std::string const failure = failureOf(
            [&] {
                test.setUp();
                test.runTest();
            },
            path().string());
        if (afterwards)
            afterwards(test);
        test.tearDown();
        return failure;
    }
};
