#pragma once

#include <QString>
#include <string>
#include <vector>

class QWidget;

namespace oakfen::testing {

/// What a screen reader meets: one node of the accessible tree.
struct AccessibleNode {
    int role = 0;
    int depth = 0;
    QString name;
    QString description;
    bool isFocusable = false;
    /// The names of what labels it.
    std::vector<QString> labels;
};

/// The visible nodes below the window, in the order in which they are read. Of long lists and
/// tables only the first cells.
[[nodiscard]] std::vector<AccessibleNode> accessibleNodes(QWidget& window);

/// Nodes that a person can't make sense of by ear: controls and pictures without a name, and
/// choices that tell their value but not what it is for.
[[nodiscard]] std::vector<std::string> namelessNodes(QWidget& window);

/// The widgets that Tab reaches, from the first one on.
[[nodiscard]] std::vector<QWidget*> tabOrder(QWidget& window);

/// The steps of Tab that go back, up to an earlier line or to the left within one; none when only
/// the last step does.
[[nodiscard]] std::vector<std::string> stepsAgainstReadingOrder(QWidget& window);

/// The tree as text, for finding out why something was not found.
[[nodiscard]] std::string describeTree(QWidget& window);

} // namespace oakfen::testing
