#include "Oakfen/Widgets/Components/ElidedLabel.h"

#include <gtest/gtest.h>

#include <QApplication>

namespace oakfen {
namespace {

const QString longName = QStringLiteral("The <b>Joint</b> Household Account of Ann & Bo");

TEST(ElidedLabel, ShowsATextThatFitsAsItIs) {
    ElidedLabel label(TextStyle::body, ThemeColor::text);
    label.resize(800, 30);
    label.show();
    label.showText(longName);
    EXPECT_EQ(label.text(), longName);
    EXPECT_EQ(label.toolTip(), QString());
}

TEST(ElidedLabel, EndsInDotsAndTellsTheWholeTextWhereItHasNoRoom) {
    ElidedLabel label(TextStyle::body, ThemeColor::text);
    label.resize(120, 30);
    label.show();
    label.showText(longName);
    EXPECT_TRUE(label.text().endsWith(QChar(0x2026)));
    EXPECT_EQ(label.accessibleName(), longName);
    EXPECT_EQ(label.toolTip(),
              QStringLiteral("<qt>The &lt;b&gt;Joint&lt;/b&gt; Household Account of Ann &amp; "
                             "Bo</qt>"));
    label.resize(800, 30);
    QApplication::processEvents();
    EXPECT_EQ(label.text(), longName);
}

} // namespace
} // namespace oakfen
