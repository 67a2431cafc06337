#pragma once

#include <stdexcept>
#include <string>

namespace oakfen {

/// An error whose text is for the user. Every exception that Oakfen throws derives from it.
class LocalizedError : public std::runtime_error {
public:
    explicit LocalizedError(const std::string& description) : std::runtime_error(description) {}

    /// The text to show.
    [[nodiscard]] std::string localizedDescription() const { return what(); }
};

} // namespace oakfen
