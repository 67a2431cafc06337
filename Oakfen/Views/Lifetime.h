#pragma once

#include <memory>
#include <utility>

namespace oakfen {

/// Ends with the object that holds it, so that an answer which comes later is dropped.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    /// The function, which does nothing once this has ended.
    template <typename Function>
    [[nodiscard]] auto whileAlive(Function function) const {
        return [alive = std::weak_ptr<const int>(token_),
                function = std::move(function)](auto&&... arguments) {
            if (!alive.expired()) {
                function(std::forward<decltype(arguments)>(arguments)...);
            }
        };
    }

private:
    std::shared_ptr<const int> token_ = std::make_shared<int>();
};

} // namespace oakfen
