#include "Oakfen/Widgets/Theme/ProgramIcon.h"

#include <gtest/gtest.h>

#include <QImage>
#include <utility>

namespace oakfen {
namespace {

TEST(ProgramIcon, IsThereInEverySizeThatADesktopShows) {
    const QIcon icon = programIcon();
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        const QImage picture = icon.pixmap(side).toImage();
        ASSERT_EQ(picture.width(), side);
        EXPECT_EQ(picture.pixelColor(side / 2, side / 2).alpha(), 255) << side;
        EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0) << side;
        EXPECT_EQ(picture.pixelColor(side - 1, side - 1).alpha(), 0) << side;
    }
}

TEST(ProgramIcon, HasNoBlurredRowBetweenItsPartsInSmallSizes) {
    const QIcon icon = programIcon();
    for (const auto& [side, firstRowOfTheNut] :
         {std::pair(16, 9), std::pair(24, 13), std::pair(32, 17), std::pair(48, 26)}) {
        const QImage picture = icon.pixmap(side).toImage();
        EXPECT_EQ(picture.pixelColor(side / 2, firstRowOfTheNut - 1).name().toStdString(),
                  "#2e7248");
        EXPECT_EQ(picture.pixelColor(side / 2, firstRowOfTheNut).name().toStdString(), "#cc8e3a");
    }
}

} // namespace
} // namespace oakfen
