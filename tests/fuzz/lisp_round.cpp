#include "tests/fuzz/lisp_round.h"

#include "testapi/ta_rb_utils_lisp.h"
#include "tests/support/shown_list.h"

namespace lispRound {

namespace {

void require(bool holds, std::string const& fault)
{
    if (!holds)
        throw Fault(fault);
}

int read(wchar_t const* text, ca::RbListPtr& list)
{
    sds_resbuf* result = nullptr;
    int const status = ta::lspexpr2rb(text, &result);
    list.reset(result);
    require(status == ta::kLispOk || status == ta::kLispMalformed || status == ta::kLispNumberOutOfRange,
            "reading gives the status " + std::to_string(status));
    require(status == ta::kLispOk || !list, "a text that is refused gives a list");
    return status;
}

void printAndReadAgain(sds_resbuf const* list)
{
    OdString print;
    int const status = ta::rb2lspexpr(list, print);
    require(status == ta::kLispOk, "what was read does not print: status " + std::to_string(status));
    ca::RbListPtr again;
    require(read(print.c_str(), again) == ta::kLispOk, "the print does not read: " + print.toUtf8());
    std::string const before = shownList(list);
    std::string const after = shownList(again.get());
    require(before == after, "printed and read again\n" + before + "\nbecomes\n" + after);
}

void convert(sds_resbuf const* list)
{
    sds_resbuf* result = nullptr;
    int const status = ta::lisp2sds(list, &result);
    ca::RbListPtr const chain(result);
    require(status == ta::kLispOk || status == ta::kLispMalformed,
            "converting gives the status " + std::to_string(status));
    require(status == ta::kLispOk || !chain, "a list that is refused gives a chain");
}

} // namespace

void run(std::wstring const& text)
{
    ca::RbListPtr list;
    int const status = read(text.c_str(), list);
    require(ta::lspexpr2rb(text.c_str(), nullptr) == status, "another status without a place for the result");
    if (status == ta::kLispOk)
        printAndReadAgain(list.get());
    convert(list.get());
}

void run(std::string_view bytes)
{
    run(odUtf8ToWide(bytes));
}

} // namespace lispRound
