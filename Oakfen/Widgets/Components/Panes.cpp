#include "Oakfen/Widgets/Components/Panes.h"

#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <vector>

namespace oakfen {

namespace {

constexpr const char* paneTrait = "isPane";

bool canHaveKeyboard(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget.isEnabled() &&
           widget.isVisible();
}

QWidget* paneOf(QWidget* widget) {
    while (widget != nullptr && !widget->isWindow()) {
        if (widget->property(paneTrait).toBool()) {
            return widget;
        }
        widget = widget->parentWidget();
    }
    return nullptr;
}

/// What Tab comes to, from the window's beginning on.
template <typename Take>
void followTab(const QWidget& window, Take take) {
    for (QWidget* each = window.nextInFocusChain(); each != &window;
         each = each->nextInFocusChain()) {
        if (each->window() == &window && canHaveKeyboard(*each) && take(*each)) {
            return;
        }
    }
}

/// Those in which something can have the keyboard now.
std::vector<QWidget*> panesOf(const QWidget& window) {
    std::vector<QWidget*> panes;
    followTab(window, [&](QWidget& each) {
        QWidget* pane = paneOf(&each);
        if (pane != nullptr && std::ranges::find(panes, pane) == panes.end()) {
            panes.push_back(pane);
        }
        return false;
    });
    return panes;
}

void focusPane(const QWidget& pane) {
    QWidget* last = pane.focusWidget();
    if (last != nullptr && paneOf(last) == &pane && canHaveKeyboard(*last)) {
        last->setFocus(Qt::OtherFocusReason);
    } else {
        focusFirstIn(pane);
    }
}

} // namespace

void makePane(QWidget& widget) {
    widget.setProperty(paneTrait, true);
}

void goToPane(QWidget& window, bool forward) {
    const std::vector<QWidget*> panes = panesOf(window);
    if (panes.empty()) {
        return;
    }
    const auto present = std::ranges::find(panes, paneOf(window.focusWidget()));
    const auto count = static_cast<std::ptrdiff_t>(panes.size());
    std::ptrdiff_t next = forward ? 0 : count - 1;
    if (present != panes.end()) {
        next = (present - panes.begin() + (forward ? 1 : count - 1)) % count;
    }
    focusPane(*panes[static_cast<std::size_t>(next)]);
}

bool focusFirstIn(const QWidget& area, Qt::FocusReason reason) {
    QWidget* first = nullptr;
    followTab(*area.window(), [&](QWidget& each) {
        first = area.isAncestorOf(&each) ? &each : nullptr;
        return first != nullptr;
    });
    if (first != nullptr) {
        first->setFocus(reason);
    }
    return first != nullptr;
}

} // namespace oakfen
