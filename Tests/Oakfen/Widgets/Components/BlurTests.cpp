#include "Oakfen/Widgets/Components/Blur.h"

#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QImage>
#include <QLabel>

namespace oakfen {
namespace {

TEST(Blur, LeavesAreasButNoWords) {
    QWidget widget;
    widget.resize(400, 200);
    widget.setStyleSheet(QStringLiteral("background: white; color: black;"));
    auto* dark = new QWidget(&widget);
    dark->setGeometry(200, 0, 200, 200);
    dark->setStyleSheet(QStringLiteral("background: black;"));
    auto* words = new QLabel(QStringLiteral("Balance 1,234.56"), &widget);
    words->setGeometry(20, 90, 120, 20);

    const QImage image = blurredPicture(widget).toImage().scaled(widget.size());
    const auto gray = [&image](int x, int y) { return qGray(image.pixel(x, y)); };
    EXPECT_GT(gray(60, 30), 200);
    EXPECT_LT(gray(340, 100), 60);
    for (int x = 20; x < 140; ++x) {
        EXPECT_LT(std::abs(gray(x, 100) - gray(x + 1, 100)), 24) << x;
    }
}

} // namespace
} // namespace oakfen
