#include "OakfenCore/Support/Text/Locale.h"

#include <atomic>
#include <cstdlib>
#include <mutex>
#include <unicode/locid.h>
#include <utility>

namespace oakfen {
namespace {

constexpr const char* fallbackName = "en_CA";

/// What the environment says of a category, in the order that the C library follows too.
std::string environmentName(const char* category) {
    for (const char* variable : {"LC_ALL", category, "LANG"}) {
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
    UserLocales locales = environmentLocales();
    std::atomic<std::uint64_t> generation = 1;
};

State& state() {
    static State theState;
    return theState;
}

} // namespace

UserLocales userLocales() {
    State& current = state();
    const std::scoped_lock lock(current.mutex);
    return current.locales;
}

UserLocales environmentLocales() {
    return {.money = usableName(environmentName("LC_MONETARY")),
            .dates = usableName(environmentName("LC_TIME")),
            .sorting = usableName(environmentName("LC_COLLATE"))};
}

void setUserLocales(const UserLocales& locales) {
    UserLocales usable{.money = usableName(locales.money),
                       .dates = usableName(locales.dates),
                       .sorting = usableName(locales.sorting)};
    State& current = state();
    const std::scoped_lock lock(current.mutex);
    current.locales = std::move(usable);
    ++current.generation;
}

void setUserLocale(std::string_view name) {
    const std::string each(name);
    setUserLocales({.money = each, .dates = each, .sorting = each});
}

std::uint64_t userLocaleGeneration() noexcept {
    return state().generation;
}

} // namespace oakfen
