#include "Fuzz/Targets.h"

#include <algorithm>
#include <array>

namespace oakfen::fuzz {

std::span<const Target> targets() {
    static constexpr std::array all{
        Target{"document", readDocument}, Target{"csv", readCSVStatement},
        Target{"qif", readQIFStatement},  Target{"ofx", readOFXStatement},
        Target{"amount", readAmount},     Target{"dates", readDates},
        Target{"ledger", editLedger},
    };
    return all;
}

const Target& targetNamed(std::string_view name) {
    const auto all = targets();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const Target& target) { return target.name == name; });
    if (found == all.end()) {
        throw std::invalid_argument("no target is named " + std::string(name));
    }
    return *found;
}

} // namespace oakfen::fuzz
