#include "Oakfen/Widgets/Components/CommandMenu.h"

#include <gtest/gtest.h>

#include <QImage>
#include <cstdlib>

#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {
namespace {

/// As near as smoothed letters come to the colour that they are drawn in.
bool isNear(const QColor& one, const QColor& other) {
    constexpr int most = 40;
    return std::abs(one.red() - other.red()) < most &&
           std::abs(one.green() - other.green()) < most &&
           std::abs(one.blue() - other.blue()) < most;
}

/// Whether the only line of a menu, without a picture, is written in the colour of what destroys.
bool isWrittenAsDestructive(const MenuEntry& entry) {
    CommandMenu menu;
    fillMenu(menu, {entry});
    menu.popup(QPoint());
    const QImage picture = menu.grab().toImage();
    menu.close();
    const QColor wanted = Theme::color(ThemeColor::negative);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (isNear(picture.pixelColor(x, y), wanted)) {
                return true;
            }
        }
    }
    return false;
}

TEST(CommandMenu, WritesWhatDestroysInTheColourOfIt) {
    EXPECT_TRUE(
        isWrittenAsDestructive({.title = "Delete", .perform = [] {}, .isDestructive = true}));
    EXPECT_FALSE(isWrittenAsDestructive({.title = "Delete", .perform = [] {}}));
}

TEST(CommandMenu, WritesWhatCannotBeChosenAsSuch) {
    EXPECT_FALSE(isWrittenAsDestructive(
        {.title = "Delete", .perform = [] {}, .isEnabled = false, .isDestructive = true}));
}

} // namespace
} // namespace oakfen
