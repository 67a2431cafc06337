#include <memory>
#include <unicode/coll.h>

#include "OakfenCore/Support/Text/ICUText.h"
#include "OakfenCore/Support/Text/Locale.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {
namespace {

enum class Order { caseInsensitive, standard };

std::unique_ptr<icu::Collator> makeCollator(Order order) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale(userLocales().sorting.c_str()), status));
    if (U_FAILURE(status)) {
        throw LocalizedError("The data for sorting texts is missing.");
    }
    if (order == Order::caseInsensitive) {
        collator->setStrength(icu::Collator::SECONDARY);
    } else {
        collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    }
    // Composed and decomposed forms are the same text, whatever else stands beside them.
    collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    return collator;
}

/// The calling thread's collator for the present locale.
template <Order order>
const icu::Collator& collator() {
    thread_local std::unique_ptr<icu::Collator> kept;
    thread_local std::uint64_t generation = 0;
    const std::uint64_t present = userLocaleGeneration();
    if (generation != present) {
        kept = makeCollator(order);
        generation = present;
    }
    return *kept;
}

template <Order order>
int compare(std::string_view a, std::string_view b) {
    if (a == b) {
        return 0;
    }
    UErrorCode status = U_ZERO_ERROR;
    return collator<order>().compareUTF8(stringPiece(a), stringPiece(b), status);
}

} // namespace

int localizedCaseInsensitiveCompare(std::string_view a, std::string_view b) {
    return compare<Order::caseInsensitive>(a, b);
}

int localizedStandardCompare(std::string_view a, std::string_view b) {
    return compare<Order::standard>(a, b);
}

std::string localizedSortKey(std::string_view text) {
    const icu::UnicodeString unicode = icu::UnicodeString::fromUTF8(stringPiece(text));
    const icu::Collator& order = collator<Order::caseInsensitive>();
    std::string key(text.size() * 2 + 16, '\0');
    const auto write = [&] {
        return order.getSortKey(unicode, reinterpret_cast<std::uint8_t*>(key.data()),
                                static_cast<std::int32_t>(key.size()));
    };
    auto length = static_cast<std::size_t>(write());
    if (length > key.size()) {
        key.resize(length);
        length = static_cast<std::size_t>(write());
    }
    key.resize(length > 0 ? length - 1 : 0); // without its terminator
    return key;
}

} // namespace oakfen
