#include "Oakfen/Widgets/Components/CommandMenu.h"

#include <QStyleOption>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr const char* destructiveTrait = "isDestructive";

} // namespace

void CommandMenu::setDestructive(QAction& line, bool isDestructive) {
    line.setProperty(destructiveTrait, isDestructive);
}

void CommandMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* line) const {
    QMenu::initStyleOption(option, line);
    if (line->property(destructiveTrait).toBool()) {
        // The style sheet has the last word on a line that is disabled, or about to be chosen.
        for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText}) {
            option->palette.setColor(role, Theme::color(ThemeColor::negative));
        }
    }
}

} // namespace oakfen
