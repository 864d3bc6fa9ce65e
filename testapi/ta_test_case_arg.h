#pragma once

// For authors of tests that run once for each of a set of parameters files: a fixture takes a TestCaseArgParams,
// calls setup() and cleanup() around each test, and asks which features the file switches on and off. How such
// suites are registered: vorntest/test_arg_suite.h.

#include "testapi/ta_host.h"

#include "vorntest/test_case_arg_base.h"

#include <memory>
#include <optional>
#include <set>
#include <string>

namespace ta {

class ObservedXmlFile;

/// Inserts the names of a list, which are separated by ",". Blanks belong to names, empty names are passed over.
/// Null is an empty list.
void str2set(wchar_t const* list, std::set<std::wstring>& out);

/// The argument of a test that a parameters file drives. The file is XML; its document element has any name and
/// the attributes `on` and `off`, lists of names of features as of str2set(), and `dwg`, the drawing that the test
/// works in. All of them may be missing; of others a DataFileObserver hears.
class TestCaseArgParams : public vorntest::TestCaseArgBase
{
public:
    explicit TestCaseArgParams(std::wstring const& paramsFile);
    ~TestCaseArgParams() override;

    static vorntest::TypeDescriptor const* desc();
    vorntest::TypeDescriptor const* isA() const override { return desc(); }
    /// Adds the property `paramsFile`, the path of the parameters file.
    static void __addPropertiesToDescriptor(vorntest::TypeDescriptor& descriptor); // NOLINT(*-reserved-identifier)

    /// The path of the parameters file.
    std::wstring const& testArg() const override { return TestCaseArgBase::testArg(); }

    /// Reads the parameters file and opens the drawing that it names: as written (a relative name counts from the
    /// current folder) or, where there is no such file, the one of that name beside the parameters file. Without
    /// `dwg` the test runs on the current drawing, and a message says so. Fails the test when the parameters file
    /// or the drawing cannot be opened.
    void setup();
    /// If setup() opened a drawing: closes the current document without saving. Forgets the features.
    void cleanup();

    /// Whether the file names the feature in `on`, in `off`; it may stand in both. False outside of setup() and
    /// cleanup().
    bool isOn(std::wstring const& feature) const { return m_on.contains(feature); }
    bool isOff(std::wstring const& feature) const { return m_off.contains(feature); }

    /// Composes a message: the prefix and ": ", if there is one, the text and a line feed. Fails the test with it,
    /// or keeps it for GetMessage().
    void message(wchar_t const* text, bool fail);
    /// The last message that did not fail the test.
    std::wstring const& GetMessage() const { return m_message; }
    /// What stands before messages until the next setup().
    void setMessagePrefix(std::wstring prefix) { m_prefix = std::move(prefix); }

private:
    void readParams();
    void openDrawing();
    OdString drawingPath() const;

    std::unique_ptr<ObservedXmlFile> m_params; // from setup() to cleanup()
    OdString m_dwgName;                        // empty when the test works in the current drawing
    std::set<std::wstring> m_on;
    std::set<std::wstring> m_off;
    std::optional<std::wstring> m_prefix;
    std::wstring m_message;
};

} // namespace ta
