#pragma once

#include <QMenu>

namespace oakfen {

/// A menu that writes what destroys something in the colour of its picture.
class CommandMenu final : public QMenu {
public:
    using QMenu::QMenu;

    /// Marks the line as one that destroys something.
    static void setDestructive(QAction& line, bool isDestructive);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* line) const override;
};

} // namespace oakfen
