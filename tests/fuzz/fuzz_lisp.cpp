// Mutated LISP texts; see lisp_round.h for what has to hold of them.
#include "tests/fuzz/lisp_round.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    lispRound::run(std::string_view(reinterpret_cast<char const*>(data), size));
    return 0;
}
