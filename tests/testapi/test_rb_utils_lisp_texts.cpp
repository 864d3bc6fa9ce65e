#include "testapi/ta_rb_utils_lisp.h"

#include "tests/fuzz/lisp_round.h"
#include "tests/support/shown_list.h"
#include "tests/testapi/lisp_recursion.h"

#include <cppunit/extensions/HelperMacros.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <random>

namespace {

// Whole tokens and their pieces, so that whatever they make together is often nearly right.
constexpr std::wstring_view s_pieces[] = {
    L"(",
    L")",
    L"(",
    L")",
    L"'",
    L" ",
    L"\n",
    L".",
    L"\"",
    L"\\",
    L"open ",
    L"_.-",
    L"nil",
    L"12",
    L"-2.7",
    L"1e3",
    L"1e400",
    L"1e-400",
    L"a",
    L"Setq",
    L"\\101",
    L"777",
    L"\\000",
    L"\\n",
    L"\"x y\"",
    L"\"open\"",
    L"\"\\t\"",
    L"\\\"",
    L" . ",
    L"\u0436",
    L"62",
    L"+",
    L"e",
    L"1e999)",
    L"(10 1 2)",
    L"(0 . \"A\")",
    L"9223372036854775807",
    L"\"\\",
};

class RandomTexts
{
public:
    explicit RandomTexts(unsigned seed) : m_random(seed) {}

    /// Pieces in any order.
    std::wstring jumble()
    {
        std::wstring text;
        for (std::size_t i = upTo(20); i > 0; --i)
            text += s_pieces[upTo(std::size(s_pieces) - 1)];
        return text;
    }
    /// A list with all brackets closed, in which now and then one character is lost.
    std::wstring list()
    {
        std::wstring text = upTo(3) == 0 ? L"'(" : L"(";
        for (std::size_t depth = 1, i = upTo(30); depth > 0; i -= i > 0 ? 1 : 0) {
            bool const closes = i == 0 || upTo(3) == 0;
            bool const opens = !closes && upTo(3) == 0;
            depth += opens ? 1 : 0;
            depth -= closes ? 1 : 0;
            text += closes ? L") " : opens ? L" (" : atom();
        }
        if (upTo(4) == 0)
            text.erase(upTo(text.size() - 1), 1);
        return text;
    }

private:
    std::wstring atom()
    {
        constexpr std::wstring_view inText[] = {L"a",     L"B",     L"\\\\", L"\\\"", L"\\n",
                                                L"\\101", L"\\000", L"\\q",  L" "};
        constexpr std::wstring_view atoms[] = {L"open ", L"'dt ", L"c:\\ ", L"nil ", L". ",
                                               L"-0.5 ", L"7 ",   L"sym ",  L"'"};
        if (upTo(1) == 0)
            return std::wstring(atoms[upTo(std::size(atoms) - 2)]);
        std::wstring text = L"\"";
        for (std::size_t i = upTo(4); i > 0; --i)
            text += inText[upTo(std::size(inText) - 1)];
        return text + (upTo(3) == 0 ? L"\"" : L"\" ");
    }
    std::size_t upTo(std::size_t most) { return std::uniform_int_distribution<std::size_t>(0, most)(m_random); }

    std::mt19937 m_random;
};

/// The text without its comments: ";" to the end of the line, ";|" to "|;".
std::wstring withoutComments(std::wstring const& text)
{
    std::wstring result;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at + 1;
        bool const isComment = text[at] == L';';
        if (text[at] == L'"') {
            wchar_t const* const quote = ut::findEndingQuote(text.c_str() + at);
            CPPUNIT_ASSERT(quote);
            end = static_cast<std::size_t>(quote - text.c_str()) + 1;
        } else if (text.compare(at, 2, L";|") == 0) {
            end = std::min(text.find(L"|;", at), text.size() - 2) + 2;
        } else if (isComment) {
            end = std::min(text.find(L'\n', at), text.size());
        }
        if (!isComment)
            result.append(text, at, end - at);
        at = end;
    }
    return result;
}

/// The lists of a text without comments, each with the quote marks in front of it.
std::vector<std::wstring> expressionsOf(std::wstring const& text)
{
    std::vector<std::wstring> expressions;
    std::size_t start = 0;
    int depth = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == L'"')
            at = static_cast<std::size_t>(ut::findEndingQuote(text.c_str() + at) - text.c_str());
        depth += text[at] == L'(' ? 1 : text[at] == L')' ? -1 : 0;
        if (text[at] == L')' && depth == 0) {
            expressions.push_back(text.substr(start, at + 1 - start));
            start = at + 1;
        }
    }
    CPPUNIT_ASSERT_EQUAL(0, depth);
    return expressions;
}

class LispTextsTest : public CppUnit::TestFixture
{
    CPPUNIT_TEST_SUITE(LispTextsTest);
    CPPUNIT_TEST(readsAsByRecursion);
    CPPUNIT_TEST(realTexts);
    CPPUNIT_TEST_SUITE_END();

    void readsAsByRecursion()
    {
        constexpr int repetitions = 20000;
        RandomTexts texts(20260);
        int numRead = 0;
        for (int i = 0; i < repetitions; ++i) {
            std::wstring const text = i % 2 == 0 ? texts.jumble() : texts.list();
            std::string const expected = lispRecursion::shown(lispRecursion::read(text));
            numRead += expected.starts_with("status") ? 0 : 1;
            CPPUNIT_ASSERT_EQUAL_MESSAGE(OdString(text).toUtf8(), expected, shownReading(text));
            lispRound::run(text);
        }
        CPPUNIT_ASSERT(numRead > repetitions / 3);
    }

    std::string shownReading(std::wstring const& text)
    {
        sds_resbuf* result = nullptr;
        int const status = ta::lspexpr2rb(text.c_str(), &result);
        ca::RbListPtr const list(result);
        return status == 0 ? shownList(result) : "status " + std::to_string(status);
    }

    void realTexts()
    {
        char const* const corpus = std::getenv("VORN_CORPUS");
        if (!corpus) {
            std::cout << "skipped: VORN_CORPUS names no folder of LISP texts\n";
            return;
        }
        int numFiles = 0;
        for (auto const& entry : std::filesystem::directory_iterator(std::filesystem::path(corpus) / "lisp")) {
            std::string const extension = entry.path().extension().string();
            if (extension != ".lsp" && extension != ".scm")
                continue;
            ++numFiles;
            std::vector<std::wstring> const expressions = expressionsIn(entry.path());
            CPPUNIT_ASSERT_MESSAGE(entry.path().string(), !expressions.empty());
            for (std::wstring const& expression : expressions) {
                CPPUNIT_ASSERT_MESSAGE(OdString(expression).toUtf8(),
                                       !shownReading(expression).starts_with("status"));
                lispRound::run(expression);
            }
        }
        CPPUNIT_ASSERT(numFiles > 0);
    }

    static std::vector<std::wstring> expressionsIn(std::filesystem::path const& path)
    {
        ut::TextFile file;
        CPPUNIT_ASSERT(file.open(OdString::fromUtf8(path.string())));
        return expressionsOf(withoutComments(file.text().str()));
    }
};

CPPUNIT_TEST_SUITE_REGISTRATION(LispTextsTest);

} // namespace
