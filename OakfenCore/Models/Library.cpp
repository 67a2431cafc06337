#include "OakfenCore/Models/Library.h"

#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

std::string defaultCurrencyCode() {
    return localeCurrencyCode();
}

} // namespace oakfen
