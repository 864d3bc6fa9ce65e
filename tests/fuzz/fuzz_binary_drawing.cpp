// Mutated drawings in binary form; see drawing_round.h for what has to hold of them.
#include "tests/fuzz/drawing_round.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    drawingRound::runBinary({reinterpret_cast<char const*>(data), size});
    return 0;
}
