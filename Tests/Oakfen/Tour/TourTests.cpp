#include "Oakfen/Tour/Tour.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <set>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "OakfenCore/Support/Files/FileSystem.h"
#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {
namespace {

/// How many colours the picture has, in small steps; counted no further than it matters.
std::size_t colorCount(const QImage& picture) {
    constexpr std::size_t enough = 1000;
    std::set<QRgb> colors;
    for (int y = 0; y < picture.height() && colors.size() < enough; y += 3) {
        for (int x = 0; x < picture.width(); x += 3) {
            colors.insert(picture.pixel(x, y));
        }
    }
    return colors.size();
}

/// What every tour shows of the sample household, without "-light.png" and "-dark.png".
const QStringList expectedPictures{
    QStringLiteral("gate-welcome"),          QStringLiteral("gate-protect"),
    QStringLiteral("gate-unlock"),           QStringLiteral("gate-unavailable"),
    QStringLiteral("screen-empty"),          QStringLiteral("screen-dashboard"),
    QStringLiteral("screen-bills"),          QStringLiteral("screen-budget"),
    QStringLiteral("screen-reports"),        QStringLiteral("screen-investing"),
    QStringLiteral("screen-savings"),        QStringLiteral("screen-categories"),
    QStringLiteral("screen-account-1"),      QStringLiteral("screen-account-2"),
    QStringLiteral("screen-busy"),           QStringLiteral("screen-small"),
    QStringLiteral("sheet-new-account"),     QStringLiteral("sheet-edit-account"),
    QStringLiteral("sheet-import-review"),   QStringLiteral("sheet-reconcile"),
    QStringLiteral("sheet-new-transaction"), QStringLiteral("sheet-edit-split"),
    QStringLiteral("sheet-edit-transfer"),   QStringLiteral("sheet-set-category"),
    QStringLiteral("sheet-edit-goal"),       QStringLiteral("sheet-contribute"),
    QStringLiteral("sheet-new-category"),    QStringLiteral("panel-find"),
    QStringLiteral("panel-find-small"),      QStringLiteral("panel-lines"),
    QStringLiteral("screen-bills-what-if"),  QStringLiteral("screen-budget-edit"),
    QStringLiteral("screen-dashboard-end"),  QStringLiteral("empty-bills"),
    QStringLiteral("one-account-dashboard"), QStringLiteral("many-categories-budget"),
    QStringLiteral("many-reminders-bills")};

TEST(Tour, ShowsEveryScreenInLightAndDark) {
    const QTemporaryDir folder;
    renderTour(utf8(folder.path()), std::nullopt);
    for (const QString& name : expectedPictures) {
        for (const QString& shade : {QStringLiteral("light"), QStringLiteral("dark")}) {
            const QString file = name + QLatin1Char('-') + shade + QStringLiteral(".png");
            SCOPED_TRACE(utf8(file));
            const QImage picture(folder.filePath(file));
            ASSERT_FALSE(picture.isNull());
            const bool isSmall = name.endsWith(QStringLiteral("small"));
            EXPECT_EQ(picture.width(), isSmall ? 980 : 1280);
            EXPECT_GE(picture.height(), 620);
            EXPECT_GT(colorCount(picture), 50U);
            const bool looksDark = picture.pixelColor(picture.width() - 4, 4).lightness() < 128;
            EXPECT_EQ(looksDark, shade == QStringLiteral("dark"));
        }
    }
    EXPECT_GE(QDir(folder.path()).entryList(QDir::Files).size(), 2 * expectedPictures.size());
}

TEST(Tour, LeavesTheThemeAndTheEnvironmentAsTheyWere) {
    const QByteArray state = qgetenv("XDG_STATE_HOME");
    EXPECT_THROW(renderTour("/nowhere", "/no/such/Library.tarnwick"), LocalizedError);
    EXPECT_FALSE(Theme::isDark());
    EXPECT_EQ(qgetenv("XDG_STATE_HOME"), state);
}

} // namespace
} // namespace oakfen
