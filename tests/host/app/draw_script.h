#pragma once

#include "host/app/ca_app.h"
#include "host/app/sys_var_store.h"

#include <cppunit/TestFixture.h>

#include <span>

/// A new drawing for each test, variables of the application as before it, and command input written as one line:
/// answers separated by "|", an empty one is Enter ("LINE|0,0|10,0|" ends with Enter).
class DrawScriptTest : public CppUnit::TestFixture
{
public:
    void setUp() override;
    void tearDown() override;

protected:
    struct DrawnCase
    {
        wchar_t const* script;
        wchar_t const* drawn; ///< as drawn() gives it; "*" stands for any text
        int commands = 1;     ///< how often U has to run until nothing is left
    };
    struct RefusedCase
    {
        wchar_t const* script;
        wchar_t const* message;
    };
    struct PromptCase
    {
        wchar_t const* script; ///< leaves the command waiting
        wchar_t const* prompt;
    };

    /// Each script in a new drawing. Then one U for each command takes everything back, to the bytes of the saved
    /// drawing, and one REDO for each brings it all again.
    void checkDrawn(std::span<DrawnCase const> cases);
    /// Each script in a new drawing with one line, 0,0 0,10, in a user coordinate system that stands upright on
    /// it: its X axis is the Y axis of the world, its Y axis the Z axis.
    void checkDrawnUpright(std::span<DrawnCase const> cases);
    /// The last answer is refused with the message, and no command waits any more.
    void checkRefused(std::span<RefusedCase const> cases);
    void checkPrompts(std::span<PromptCase const> cases);

    static int feed(OdString const& script);
    /// One text for each entity of model space, separated by "; ". Numbers are rounded to 4 decimals, z is left
    /// out where it is 0, the normal where it is (0, 0, 1), angles are degrees. Classes without a text of their
    /// own show what they list: "ELLIPSE center 0,0 major axis 5,0 ...".
    static OdString drawn();
    static OdString lastPrompt();
    /// The command line holds this line.
    static bool hasLine(OdString const& text);
    static OdDbDatabase& db();
    /// The current drawing as it would be saved.
    static std::string bytes();

private:
    void renew();

    ca::SysVarStore m_variables;
};
