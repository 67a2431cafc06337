#pragma once

#include <string>

namespace oakfen {

/// What a screen shows where there is nothing to list: what to do, in words.
struct EmptyState {
    std::string title;
    std::string symbolName;
    std::string text = {};

    friend bool operator==(const EmptyState&, const EmptyState&) = default;
};

} // namespace oakfen
