#include "Oakfen/ScreenCommands.h"

#include <utility>

namespace oakfen {

Subscription ScreenCommands::offer(Offer offer) {
    const std::shared_ptr<Offer> made(new Offer(std::move(offer)), [this](const Offer* ended) {
        delete ended;
        // Or the menus would still lead into a screen that has gone.
        changed.notify();
    });
    std::erase_if(offers_, [](const auto& each) { return each.expired(); });
    offers_.push_back(made);
    changed.notify();
    return Subscription(made);
}

std::shared_ptr<const ScreenCommands::Offer> ScreenCommands::present() const {
    for (auto each = offers_.rbegin(); each != offers_.rend(); ++each) {
        if (auto offer = each->lock()) {
            return offer;
        }
    }
    return nullptr;
}

} // namespace oakfen
