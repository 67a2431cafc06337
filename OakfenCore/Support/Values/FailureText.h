#pragma once

#include <exception>
#include <string>

namespace oakfen {

/// What to tell the person of a failure that anything may have thrown. What the standard library
/// calls its errors ("std::bad_alloc") is not for people.
[[nodiscard]] std::string failureText(const std::exception& error);

} // namespace oakfen
