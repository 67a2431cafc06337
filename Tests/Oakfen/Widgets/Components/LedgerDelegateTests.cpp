#include "Oakfen/Widgets/Components/LedgerDelegate.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QStandardItemModel>
#include <algorithm>
#include <cstdlib>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {
namespace {

/// What is painted from one column of an image to another: how far right and how far down.
struct Painted {
    int right = -1;
    int bottom = -1;
};

Painted paintedIn(const QImage& image, int from, int to) {
    Painted painted;
    for (int x = from; x < to; ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y) != QColor(Qt::white)) {
                painted = {x, std::max(painted.bottom, y)};
            }
        }
    }
    return painted;
}

TEST(LedgerDelegate, WritesADetailInSmallerLettersOnTheLineOfItsText) {
    const QString text = QStringLiteral("Hill");
    const QString detail = QStringLiteral("Hill Hill Hill Hill Hill");
    QStandardItemModel model(1, 1);
    model.setData(model.index(0, 0), text);
    model.setData(model.index(0, 0), detail, LedgerDelegate::DetailRole);
    QImage image(400, Theme::tableRowHeight, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    option.font = Theme::font(TextStyle::body);
    LedgerDelegate().paint(&painter, option, model.index(0, 0));
    painter.end();

    const int begin =
        (2 * LedgerDelegate::margin) + QFontMetrics(option.font).horizontalAdvance(text);
    const Painted first = paintedIn(image, 0, begin);
    const Painted second = paintedIn(image, begin, image.width());
    const int room = QFontMetrics(Theme::font(TextStyle::caption)).horizontalAdvance(detail);
    EXPECT_LE(second.right, begin + room);
    EXPECT_GT(second.right, begin + (room / 2));
    EXPECT_LE(std::abs(second.bottom - first.bottom), 1);
}

} // namespace
} // namespace oakfen
