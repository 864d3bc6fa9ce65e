#include "tests/fuzz/lisp_round.h"

#include "host/db/records/od_db_block_table_record.h"
#include "host/sds/sds_entity_maker.h"
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

/// All that two entities can have in common: not name and handle.
std::string groupsOf(sds_resbuf const* chain)
{
    constexpr short name = -1;
    constexpr short handle = 5;
    std::string shown;
    for (; chain; chain = chain->rbnext)
        if (chain->restype != name && chain->restype != handle)
            shown += std::to_string(chain->restype) + " " + shownValue(*chain) + "\n";
    return shown;
}

/// What is made of a chain says a chain that makes it once more.
void makeEntity(sds_resbuf const* chain)
{
    OdDbDatabasePtr const database(new OdDbDatabase);
    ca::SdsEntityMaker maker(*database);
    auto const last = [&] {
        auto const space = database->getModelSpaceId().open<OdDbBlockTableRecord>();
        return space->newIterator(false).objectId();
    };
    if (!maker.make(chain) || last().isNull())
        return; // refused, the beginning of a sequence, in paper space
    OdDbObjectId const first = last();
    ca::RbListPtr const every(ca::allocRb(L"*"));
    ca::RbListPtr const said(sds_entgetx(ca::nameOf(first).words, every.get()));
    require(said && maker.make(said.get()) && last() != first, "an entity was made that cannot be made again");
    ca::RbListPtr const again(sds_entgetx(ca::nameOf(last()).words, every.get()));
    require(groupsOf(said.get()) == groupsOf(again.get()),
            "made again\n" + groupsOf(said.get()) + "becomes\n" + groupsOf(again.get()));
}

void convert(sds_resbuf const* list)
{
    sds_resbuf* result = nullptr;
    int const status = ta::lisp2sds(list, &result);
    ca::RbListPtr const chain(result);
    require(status == ta::kLispOk || status == ta::kLispMalformed,
            "converting gives the status " + std::to_string(status));
    require(status == ta::kLispOk || !chain, "a list that is refused gives a chain");
    if (chain)
        makeEntity(chain.get());
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
