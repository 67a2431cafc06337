#include "OakfenCore/Support/Values/FailureText.h"

#include <new>

#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {

std::string failureText(const std::exception& error) {
    if (const auto* known = dynamic_cast<const LocalizedError*>(&error)) {
        return known->localizedDescription();
    }
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) {
        return "There isn’t enough memory.";
    }
    return "Something unexpected went wrong.";
}

} // namespace oakfen
