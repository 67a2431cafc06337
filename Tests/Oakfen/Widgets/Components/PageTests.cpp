#include "Oakfen/Widgets/Components/Page.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

#include "Tests/Oakfen/Widgets/Settle.h"

namespace oakfen {
namespace {

class PageTest : public ::testing::Test {
protected:
    PageTest() {
        page.column()->addWidget(block);
        page.resize(600, 400);
        page.show();
        testing::settle();
    }

    /// The last column of the page's body in which the tool has painted something.
    [[nodiscard]] int paintedTo() const {
        const QImage image = tool->grab().toImage();
        const qreal scale = image.devicePixelRatio();
        int last = 0;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                if (image.pixel(x, y) != image.pixel(0, 0)) {
                    last = x;
                }
            }
        }
        return tool->mapTo(page.widget(), QPoint(static_cast<int>(last / scale), 0)).x();
    }

    Page page{QStringLiteral("Page")};
    QToolButton* tool =
        page.addTool("plus", QStringLiteral("New Thing"), QStringLiteral("Add a thing"));
    QWidget* block = new QWidget;
};

TEST_F(PageTest, AToolEndsWithTheBlocksBeneathIt) {
    constexpr int frame = 4;
    EXPECT_EQ(tool->geometry().right(), block->geometry().right());
    EXPECT_GE(paintedTo(), block->geometry().right() - frame);
}

TEST_F(PageTest, AToolThatOpensAMenuIsMarked) {
    const int before = tool->sizeHint().width();
    tool->setMenu(new QMenu(tool));
    testing::settle();
    EXPECT_GT(tool->sizeHint().width(), before);
    EXPECT_GE(tool->width(), tool->sizeHint().width());
    constexpr int frame = 4;
    EXPECT_GE(paintedTo(), block->geometry().right() - frame);
}

} // namespace
} // namespace oakfen
