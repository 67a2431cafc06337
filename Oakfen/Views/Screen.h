#pragma once

#include <memory>
#include <utility>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Lifetime.h"
#include "Oakfen/Views/Table.h"

namespace oakfen {

/// How the program's tables write money and days.
[[nodiscard]] inline CellContext cellContextOf(const AppEnvironment& environment) {
    const Calendar& calendar = environment.clock.calendar();
    return {environment.currencyCode(), calendar, calendar.endOfDay(environment.clock.now())};
}

/// What all screens have in common: they hold what the person chose, and derive one content from
/// that and the ledger. A widget shows the content and follows `changed`; it watches nothing else.
///
/// `Content` is a plain value with equality. It never changes once it was made and is there for as
/// long as somebody holds it, so that nothing that is shown can go stale under a widget's hands.
template <typename Content>
class Screen {
public:
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    virtual ~Screen() = default;

    /// As of now; made once per change.
    [[nodiscard]] std::shared_ptr<const Content> content() const {
        if (isOutdated_) {
            auto next = std::make_shared<const Content>(derive(content_.get()));
            if (content_ == nullptr || !(*next == *content_)) {
                content_ = std::move(next);
            }
            isOutdated_ = false;
        }
        return content_;
    }

    /// Told after the content has become another one; what comes out equal is not told of.
    Observers<> changed;

protected:
    explicit Screen(AppEnvironment& environment)
        : environment_(environment),
          libraryChanged_(environment.store.libraryChanged.observe([this] { followLibrary(); })) {}

    /// Makes the content. `earlier` is the last one, null at first, whose equal parts may be used
    /// again.
    [[nodiscard]] virtual Content derive(const Content* earlier) const = 0;

    /// Takes over what a content that was just made has cut down of the screen's own state.
    virtual void adopt(const Content& /*content*/) {}

    /// After the ledger has become another one.
    virtual void followLibrary() { stateChanged(); }

    /// Ends each function that changes what the content depends on.
    void stateChanged() {
        isOutdated_ = true;
        // Until somebody has asked for the content, nobody shows it.
        if (content_ != nullptr) {
            const std::shared_ptr<const Content> earlier = content_;
            if (content() != earlier) {
                adopt(*content_);
                changed.notify();
            }
        }
    }

    /// Before the last edit of a sheet, which closes after it and need not show what comes of it.
    void stopFollowingLibrary() { libraryChanged_.reset(); }

    /// The function as an answer to be waited for: one that comes once the screen has gone is
    /// dropped.
    template <typename Function>
    [[nodiscard]] auto whileAlive(Function function) const {
        return lifetime_.whileAlive(std::move(function));
    }

    /// How its tables write money and days.
    [[nodiscard]] CellContext cellContext() const { return cellContextOf(environment_); }

    AppEnvironment& environment_;

private:
    mutable std::shared_ptr<const Content> content_;
    mutable bool isOutdated_ = true;
    Lifetime lifetime_;
    Subscription libraryChanged_;
};

} // namespace oakfen
