// The entry that libFuzzer calls, for the target that the build names.
#include <cstddef>
#include <cstdint>

#include "Fuzz/Targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const oakfen::fuzz::Target& target = oakfen::fuzz::targetNamed(OAKFEN_FUZZ_TARGET);
    // A violation is not caught: it ends the program, which is how libFuzzer learns of it.
    target.run({reinterpret_cast<const char*>(data), size});
    return 0;
}
