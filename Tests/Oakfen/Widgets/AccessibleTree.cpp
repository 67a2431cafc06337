#include "Tests/Oakfen/Widgets/AccessibleTree.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QWidget>
#include <algorithm>

#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen::testing {

namespace {

/// Enough to see headings and a few rows.
constexpr int mostChildren = 120;

using Relations = QList<QPair<QAccessibleInterface*, QAccessible::Relation>>;

AccessibleNode nodeOf(const QAccessibleInterface& interface, int depth) {
    const QAccessible::State state = interface.state();
    AccessibleNode node{.role = interface.role(),
                        .depth = depth,
                        .name = interface.text(QAccessible::Name),
                        .description = interface.text(QAccessible::Description),
                        .isFocusable = state.focusable != 0};
    for (const auto& [other, relation] : Relations(interface.relations(QAccessible::Label))) {
        if (relation == QAccessible::Label && other != nullptr) {
            node.labels.push_back(other->text(QAccessible::Name));
        }
    }
    return node;
}

void collect(const QAccessibleInterface& parent, int depth, std::vector<AccessibleNode>& nodes) {
    const int count = std::min(parent.childCount(), mostChildren);
    for (int index = 0; index < count; ++index) {
        const QAccessibleInterface* child = parent.child(index);
        const auto* widget = child != nullptr ? qobject_cast<QWidget*>(child->object()) : nullptr;
        const bool isWindow = widget != nullptr && widget->isWindow();
        if (child == nullptr || child->state().invisible != 0 || isWindow) {
            continue;
        }
        nodes.push_back(nodeOf(*child, depth));
        collect(*child, depth + 1, nodes);
    }
}

std::string describe(const AccessibleNode& node) {
    return std::string(static_cast<std::size_t>(node.depth) * 2, ' ') +
           utf8(qAccessibleRoleString(static_cast<QAccessible::Role>(node.role))) + " “" +
           utf8(node.name) + "”" + (node.isFocusable ? " focusable" : "");
}

bool mustHaveName(const AccessibleNode& node) {
    switch (node.role) {
    case QAccessible::Graphic:
    case QAccessible::PushButton:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::ProgressBar:
    case QAccessible::Table:
    case QAccessible::Tree:
    case QAccessible::List:
    case QAccessible::ColumnHeader:
    case QAccessible::TreeItem:
    case QAccessible::MenuItem:
        return true;
    default:
        return node.isFocusable && node.role != QAccessible::Cell;
    }
}

std::string describe(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return std::string(widget.metaObject()->className()) + " “" +
           utf8(button != nullptr ? button->text() : widget.accessibleName()) + "”";
}

QRect placeOf(const QWidget& widget) {
    return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

} // namespace

std::vector<AccessibleNode> accessibleNodes(QWidget& window) {
    std::vector<AccessibleNode> nodes;
    if (const QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&window)) {
        collect(*root, 0, nodes);
    }
    return nodes;
}

std::vector<std::string> namelessNodes(QWidget& window) {
    std::vector<std::string> problems;
    for (const AccessibleNode& node : accessibleNodes(window)) {
        const bool isNameless =
            node.name.trimmed().isEmpty() || (node.role == QAccessible::ColumnHeader &&
                                              node.name.toInt() > 0); // the toolkit's own numbering
        if (mustHaveName(node) && isNameless && node.labels.empty()) {
            problems.push_back(describe(node));
        }
        // The toolkit gives the value of a choice as its name.
        if (node.role == QAccessible::ComboBox && node.labels.empty() &&
            node.description.isEmpty()) {
            problems.push_back(describe(node) + " that doesn’t tell what it is a choice of");
        }
    }
    return problems;
}

std::vector<QWidget*> tabOrder(QWidget& window) {
    std::vector<QWidget*> order;
    for (QWidget* each = window.nextInFocusChain(); each != &window;
         each = each->nextInFocusChain()) {
        const bool takesTab = (each->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (takesTab && each->focusProxy() == nullptr && each->isVisibleTo(&window) &&
            each->isEnabled() && each->window() == &window) {
            order.push_back(each);
        }
    }
    return order;
}

std::vector<std::string> stepsAgainstReadingOrder(QWidget& window) {
    std::vector<std::string> problems;
    const std::vector<QWidget*> order = tabOrder(window);
    for (std::size_t index = 0; index < order.size(); ++index) {
        const QWidget& from = *order[index];
        const QWidget& to = *order[(index + 1) % order.size()];
        const QRect before = placeOf(from);
        const QRect after = placeOf(to);
        const bool isAbove = after.bottom() < before.top();
        const bool isRight = after.left() > before.right();
        const bool isLeft = after.right() < before.left();
        const bool isBelow = after.top() > before.bottom();
        // A column to the right begins at the top again.
        if ((isAbove && !isRight) || (isLeft && !isBelow)) {
            problems.push_back(describe(from) + " to " + describe(to));
        }
    }
    // Tab goes round in a circle, so one step leads back from the end to the beginning.
    return problems.size() <= 1 ? std::vector<std::string>() : problems;
}

std::string describeTree(QWidget& window) {
    std::string text;
    for (const AccessibleNode& node : accessibleNodes(window)) {
        text += describe(node) + "\n";
    }
    return text;
}

} // namespace oakfen::testing
