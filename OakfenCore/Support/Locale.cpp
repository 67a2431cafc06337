#include "OakfenCore/Support/Locale.h"

#include <atomic>
#include <cstdlib>
#include <mutex>
#include <unicode/locid.h>

namespace oakfen {
namespace {

constexpr const char* fallbackName = "en_CA";

/// The locale of amounts, since a program about money follows that where several are set.
std::string environmentName() {
    for (const char* variable : {"LC_ALL", "LC_MONETARY", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') {
            return value;
        }
    }
    return "";
}

/// The name as ICU writes it, without a character set; the fallback for one that ICU doesn't know.
std::string usableName(std::string_view name) {
    const std::string plain(name.substr(0, name.find_first_of(".@")));
    if (plain.empty() || plain == "C" || plain == "POSIX") {
        return fallbackName;
    }
    const icu::Locale locale = icu::Locale::createCanonical(plain.c_str());
    const bool isKnown = !locale.isBogus() && *locale.getISO3Language() != '\0';
    return isKnown ? locale.getName() : fallbackName;
}

struct State {
    std::mutex mutex;
    std::string name = usableName(environmentName());
    std::atomic<std::uint64_t> generation = 1;
};

State& state() {
    static State theState;
    return theState;
}

} // namespace

std::string userLocale() {
    State& current = state();
    const std::scoped_lock lock(current.mutex);
    return current.name;
}

void setUserLocale(std::string_view name) {
    State& current = state();
    const std::scoped_lock lock(current.mutex);
    current.name = usableName(name);
    ++current.generation;
}

std::uint64_t userLocaleGeneration() noexcept {
    return state().generation;
}

} // namespace oakfen
