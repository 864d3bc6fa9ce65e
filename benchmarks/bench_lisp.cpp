// LISP texts: reading entity lists and deep nesting, printing, converting to chains of group codes. The times of
// reading and converting include freeing the result.
#include "testapi/ta_rb_utils_lisp.h"

#include <benchmark/benchmark.h>

#include <random>
#include <stdexcept>

namespace {

/// One list that holds the lists of so many entities.
std::wstring entityLists(int count)
{
    std::mt19937 random(12345);
    std::uniform_real_distribution<> coordinate(-1e4, 1e4);
    auto const number = [&] { return L" " + ut::formatReal(coordinate(random), 16).str(); };
    std::wstring text = L"(";
    for (int i = 0; i < count; ++i) {
        text +=
            L"((0 . \"LINE\") (5 . \"" + std::to_wstring(100 + i) + L"\") (100 . \"AcDbEntity\") (8 . \"Layer1\")";
        text +=
            L" (62 . " + std::to_wstring(i % 256) + L") (100 . \"AcDbLine\") (10" + number() + number() + L" 0.0)";
        text += L" (11" + number() + number() + L" 0.0) (210 0.0 0.0 1.0) (370 . -1))\n";
    }
    return text + L")";
}

std::wstring nestedLists(std::size_t depth)
{
    return std::wstring(depth, L'(') + std::wstring(depth, L')');
}

ca::RbListPtr read(std::wstring const& text)
{
    sds_resbuf* list = nullptr;
    if (ta::lspexpr2rb(text.c_str(), &list) != ta::kLispOk)
        throw std::runtime_error("the text does not read");
    return ca::RbListPtr(list);
}

void setCharacters(benchmark::State& state, std::size_t perIteration)
{
    state.counters["characters"] =
        benchmark::Counter(static_cast<double>(perIteration), benchmark::Counter::kIsIterationInvariantRate);
}

void readText(benchmark::State& state, std::wstring const& text)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(read(text));
    setCharacters(state, text.size());
}

void readEntityLists(benchmark::State& state)
{
    readText(state, entityLists(static_cast<int>(state.range(0))));
}

void readNestedLists(benchmark::State& state)
{
    readText(state, nestedLists(static_cast<std::size_t>(state.range(0))));
}

void printEntityLists(benchmark::State& state)
{
    std::wstring const text = entityLists(static_cast<int>(state.range(0)));
    ca::RbListPtr const list = read(text);
    OdString print;
    for (auto _ : state)
        if (ta::rb2lspexpr(list.get(), print) != ta::kLispOk)
            throw std::runtime_error("the list does not print");
    setCharacters(state, print.getLength());
}

void convertEntityList(benchmark::State& state)
{
    std::wstring const text = L"((0 . \"LINE\") (8 . \"0\") (10 1.5 2.5 0.0) (11 3.5 4.5 0.0) (62 . 5))";
    ca::RbListPtr const list = read(text);
    for (auto _ : state) {
        sds_resbuf* chain = nullptr;
        if (ta::lisp2sds(list.get(), &chain) != ta::kLispOk)
            throw std::runtime_error("the list does not convert");
        ca::freeRbList(chain);
    }
}

BENCHMARK(readEntityLists)->Arg(10)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(readNestedLists)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(printEntityLists)->Arg(1'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(convertEntityList);

} // namespace
