#include "testapi/ta_rb_utils_lisp.h"

#include "tests/support/limited_run.h"
#include "tests/support/shown_list.h"

#include <cppunit/extensions/HelperMacros.h>

#include <array>

// What is lost or freed twice shows in the build with the address sanitizer.
namespace {

struct Row
{
    wchar_t const* text;
    std::string expected; ///< tokens as shownList() shows them, or a status
};

std::string read(wchar_t const* text)
{
    sds_resbuf* result = ca::allocRb(RTNIL);
    ca::RbListPtr const replaced(result);
    int const status = ta::lspexpr2rb(text, &result);
    ca::RbListPtr const list(result);
    CPPUNIT_ASSERT_EQUAL(status, ta::lspexpr2rb(text, nullptr));
    CPPUNIT_ASSERT(status == 0 || !list);
    return status == 0 ? shownList(list.get()) : std::to_string(status);
}

template <std::size_t N>
void check(std::array<Row, N> const& rows)
{
    for (Row const& row : rows)
        CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(row.text).toUtf8(), row.expected, read(row.text));
}

/// Opens and closes so many lists around a symbol.
std::wstring nested(std::size_t depth, std::wstring const& mark = L"")
{
    std::wstring text;
    for (std::size_t i = 0; i < depth; ++i)
        text += mark + L"(";
    return text + L"a" + std::wstring(depth, L')');
}

class LispReaderTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(LispReaderTest);
    CPPUNIT_TEST(tokens);
    CPPUNIT_TEST(numbers);
    CPPUNIT_TEST(escapes);
    CPPUNIT_TEST(textsOfShellCommands);
    CPPUNIT_TEST(quoteMarks);
    CPPUNIT_TEST(oneExpression);
    CPPUNIT_TEST(firstFaultDecides);
    CPPUNIT_TEST(shellCommands);
    CPPUNIT_TEST(shortMemory);
    CPPUNIT_TEST(deepNesting);
    CPPUNIT_TEST_SUITE_END();

    // clang-format off
    void tokens()
    {
        check(std::to_array<Row>({
            {L"",                           ""},
            {L" \t\r\n\v\f",                ""},
            {L"(setq a \"x\\ty\")",         "( <SETQ> <A> <x\ty> )"},
            {L"((0 . \"Line\")(10 1. 2 -3e0))", "( ( 0 . <Line> ) ( 10 1.0 2 -3.0 ) )"},
            {L"(a\"b\"c'd(e)f)",            "( <A> <b> <C> ( <QUOTE> <D> ) ( <E> ) <F> )"},
            {L"(nil NIL nIl nil1 \"nil\")", "( nil nil nil <NIL1> <nil> )"},
            {L"(\x0436\xE9 a.b ; #x)",      "( <\xD0\x96\xC3\x89> <A.B> <;> <#X> )"},
            {L"(() \"\")",                  "( ( ) <> )"},
        }));
        CPPUNIT_ASSERT_EQUAL(std::string(), read(nullptr));
    }

    void numbers()
    {
        check(std::to_array<Row>({
            {L"12",                     "12"},
            {L"12.0",                   "12.0"},
            {L"1e3",                    "1000.0"},
            {L"-2.7",                   "-2.7"},
            {L"+5",                     "5"},
            {L"-0",                     "0"},
            {L"-7",                     "-7"},
            {L"5.",                     "5.0"},
            {L"-.5",                    "-0.5"},
            {L"(.5)",                   "( . 5 )"},
            {L"(a .-5 0.5.)",           "( <A> . -5 <0.5.> )"},
            {L"(1- + - e 1e 0x1F inf)", "( <1-> <+> <-> <E> <1E> <0X1F> <INF> )"},
            {L"1e-400",                 "0.0"},
            {L"1e400",                  "-5"},
            {L"-1e400",                 "-5"},
            {L"9007199254740993",       "9007199254740992"},
            {L"-9223372036854775808",   "-9223372036854775808"},
            {L"9223372036854775808",    "-5"},
        }));
    }

    void escapes()
    {
        check(std::to_array<Row>({
            {LR"("a\101b")",           "<aAb>"},
            {LR"("a\000b")",           "<a\\000b>"},
            {LR"("\\ \" \e \n \r \t")", "<\\ \" \x1B \n \r \t>"},
            {LR"("\N \x \' \18 \12")", "<\\N \\x \\' \\18 \\12>"},
            {LR"("\1011\777\n\\n")",   "<A1\xC7\xBF\n\\n>"},
            {LR"("\108")",             "<\\108>"},
            {LR"("a\\")",              "<a\\>"},
            {LR"("a\")",               "-1"},
        }));
    }

    void textsOfShellCommands()
    {
        check(std::to_array<Row>({
            {LR"((command "_line" "a\\b"))",    R"(( <COMMAND> <_line> <a\b> ))"},
            {LR"((command "_open" "a\\\"b"))",  R"(( <COMMAND> <_open> <a\\\"b> ))"},
            {LR"((open "\t" "\t"))",            "( <OPEN> <\\t> <\t> )"},
            {LR"(("'_.-i" "\t"))",              "( <'_.-i> <\\t> )"},
            {LR"(("open" . "\t"))",             "( <open> . <\t> )"},
            {LR"((open ("\t") "\t"))",          "( <OPEN> ( <\t> ) <\t> )"},
            {LR"((open '"\t" "\t"))",           "( <OPEN> ( <QUOTE> <\\t> ) <\t> )"},
            {LR"((open "c:\dir\"))",            "-1"},
            {LR"((open c:\dir\ "\t"))",         "( <OPEN> <C:\\DIR\\> <\t> )"},
        }));
    }

    void quoteMarks()
    {
        check(std::to_array<Row>({
            {L"'a",         "( <QUOTE> <A> )"},
            {L"''a",        "( <QUOTE> ( <QUOTE> <A> ) )"},
            {L" ' (a b) ",  "( <QUOTE> ( <A> <B> ) )"},
            {L"(a '(b 'c))", "( <A> ( <QUOTE> ( <B> ( <QUOTE> <C> ) ) ) )"},
            {L"(' ' () '.)", "( ( <QUOTE> ( <QUOTE> ( ) ) ) ( <QUOTE> . ) )"},
            {L"'",          "-1"},
            {L"')",         "-1"},
            {L"(a ')",      "-1"},
            {L"(a (b '))",  "-1"},
            {L"a '",        "<A>"},
            {L"'(a) ''",    "( <QUOTE> ( <A> ) )"},
        }));
    }

    void oneExpression()
    {
        check(std::to_array<Row>({
            {L"(a b",       "-1"},
            {L"a b",        "-1"},
            {L"(a) b",      "-1"},
            {L"(a))",       "-1"},
            {L"(a (b)",     "-1"},
            {L".5",         "-1"},
            {L"\"a",        "-1"},
            {L"(a (b \"))", "-1"},
            {L".",          "."},
            {L")",          ")"},
            {L"))",         "-1"},
        }));
    }

    void firstFaultDecides()
    {
        check(std::to_array<Row>({
            {L"(1e999",               "-5"},
            {L"(1e999 (",             "-5"},
            {L"(a (1e999",            "-1"},
            {L"(a (1e999)",           "-5"},
            {L"(a (b (1e999)",        "-1"},
            {L"(a (1e999 \")\" ( )",  "-1"},
            {L"(a (1e999 \")\") \"",  "-5"},
            {L"(a ((1e999) \")) b",   "-1"},
            {L"(a) 1e999",            "-1"},
        }));
    }

    void shellCommands()
    {
        for (wchar_t const* const name : {L"OPEN", L"_save", L"'_.SaveAs", L"new", L"SCRIPT", L"shell", L"-insert", L"-I",
                                          L"PdfAttach", L"TEXT", L"dt", L"-mtext", L"_-STYLE"})
            CPPUNIT_ASSERT_MESSAGE(OdString(name).toUtf8(), isShellCommand(name));
        for (wchar_t const* const name : {L"LINE", L"_circle", L"INSERTED", L"style", L" OPEN", L"OPEN ", L"'", L""})
            CPPUNIT_ASSERT_MESSAGE(OdString(name).toUtf8(), !isShellCommand(name));
        CPPUNIT_ASSERT(!isShellCommand(nullptr));
        CPPUNIT_ASSERT(isShellCommand((std::wstring(5000, L'_') + L"open").c_str()));
        CPPUNIT_ASSERT(!isShellCommand((L"open" + std::wstring(5000, L'_')).c_str()));
    }
    // clang-format on

    void shortMemory()
    {
        constexpr int allocations = 16; // 13 nodes and 3 texts
        for (int nth = 1; nth <= allocations + 1; ++nth) {
            ca::RbAllocFailure const failure(nth);
            CPPUNIT_ASSERT_EQUAL(
                std::string(nth <= allocations ? "-3" : "( ( <QUOTE> ( <A> nil . 1 2.5 <b> ) ) )"),
                readOnce(L"('(a nil . 1 2.5 \"b\"))"));
        }
        ca::RbAllocFailure const failure(4); // the bracket in front of "b"
        CPPUNIT_ASSERT_EQUAL(std::string("-1"), readOnce(L"(a (b c"));
    }

    std::string readOnce(wchar_t const* text)
    {
        sds_resbuf* result = nullptr;
        int const status = ta::lspexpr2rb(text, &result);
        ca::RbListPtr const list(result);
        return status == 0 ? shownList(result) : std::to_string(status);
    }

    void deepNesting()
    {
        constexpr std::size_t depth = 1'000'000;
        RunWatch const watch;
        for (std::wstring const mark : {L"", L"'"}) {
            std::wstring text = nested(depth, mark);
            sds_resbuf* list = nullptr;
            CPPUNIT_ASSERT_EQUAL(0, ta::lspexpr2rb(text.c_str(), &list));
            ca::RbListPtr const owner(list);
            OdString print;
            CPPUNIT_ASSERT_EQUAL(0, ta::rb2lspexpr(list, print));
            sds_resbuf* chain = nullptr;
            CPPUNIT_ASSERT_EQUAL(-1, ta::lisp2sds(list, &chain));
            text.pop_back();
            CPPUNIT_ASSERT_EQUAL(-1, ta::lspexpr2rb(text.c_str(), &list));
        }
        std::wstring const overflow = std::wstring(depth, L'(') + L"1e999" + std::wstring(depth, L')');
        CPPUNIT_ASSERT_EQUAL(-5, ta::lspexpr2rb(overflow.c_str(), nullptr));
        CPPUNIT_ASSERT(watch.seconds() < 20);
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(LispReaderTest);

} // namespace
