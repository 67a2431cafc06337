#include "OakfenCore/Models/Library.h"

#include <utility>

#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

Library emptyDocument(std::string currencyCode) {
    Library library;
    library.currencyCode = std::move(currencyCode);
    return library;
}

std::string defaultCurrencyCode() {
    return localeCurrencyCode();
}

} // namespace oakfen
