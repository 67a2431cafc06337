#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace oakfen {

/// Keeps a callback registered for as long as it lives. Movable; an empty one does nothing.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<void> token) : token_(std::move(token)) {}

    /// Ends the subscription now.
    void reset() { token_.reset(); }

private:
    std::shared_ptr<void> token_;
};

/// A list of callbacks. A callback may subscribe or unsubscribe anyone, itself included, while a
/// notice is under way; one that was added meanwhile is first called by the next notice.
template <typename... Arguments>
class Observers {
public:
    using Callback = std::function<void(Arguments...)>;

    [[nodiscard]] Subscription observe(Callback callback) {
        auto entry = std::make_shared<Callback>(std::move(callback));
        entries_.push_back(entry);
        return Subscription(std::move(entry));
    }

    void notify(Arguments... arguments) {
        std::erase_if(entries_, [](const auto& entry) { return entry.expired(); });
        const auto present = entries_;
        for (const auto& entry : present) {
            if (const auto callback = entry.lock()) {
                (*callback)(arguments...);
            }
        }
    }

private:
    std::vector<std::weak_ptr<Callback>> entries_;
};

} // namespace oakfen
