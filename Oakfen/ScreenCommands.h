#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Oakfen/MenuEntry.h"
#include "OakfenCore/Support/Values/Observers.h"

namespace oakfen {

/// What the screen that is shown adds to the menu bar. Must outlive the screens.
class ScreenCommands {
public:
    struct Offer {
        /// Goes to where the person types what to look for.
        std::function<void()> find = {};
        /// The ways to put its rows in order.
        std::function<std::vector<MenuEntry>()> forOrder = {};
        /// The lines for the rows that are selected.
        std::function<std::vector<MenuEntry>()> forRows = {};
    };

    /// Makes the offer of a screen or a panel that has come up. It holds as long as the
    /// subscription, but for the time that a later one's own holds.
    [[nodiscard]] Subscription offer(Offer offer);

    /// The latest that holds; null while the screen adds nothing.
    [[nodiscard]] std::shared_ptr<const Offer> present() const;

    /// The lines, or what can be done with them, have become different.
    Observers<> changed;

private:
    std::vector<std::weak_ptr<const Offer>> offers_;
};

} // namespace oakfen
