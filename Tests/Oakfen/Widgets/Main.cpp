#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "Oakfen/Widgets/Shell/EventApplication.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "OakfenCore/Support/Text/Locale.h"

namespace {

/// Gives each test a folder of its own for what windows remember, so that none begins with the
/// folded groups and column widths of another.
class FreshWindowState final : public ::testing::EmptyTestEventListener {
public:
    explicit FreshWindowState(QString home) : home_(std::move(home)) {}

    void OnTestStart(const ::testing::TestInfo& /*test*/) override {
        qputenv("XDG_STATE_HOME",
                (home_ + QStringLiteral("/state-") + QString::number(++number_)).toUtf8());
    }

private:
    QString home_;
    int number_ = 0;
};

} // namespace

/// The tests see no display, no desktop and nothing of the person's own folders.
int main(int argumentCount, char** arguments) {
    const QTemporaryDir home;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("HOME", home.path().toUtf8());
    for (const char* folder : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"}) {
        qputenv(folder, home.filePath(QString::fromLatin1(folder)).toUtf8());
    }
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    oakfen::setUserLocale("en_CA");
    ::testing::InitGoogleTest(&argumentCount, arguments);
    ::testing::UnitTest::GetInstance()->listeners().Append(new FreshWindowState(home.path()));
    oakfen::EventApplication application(argumentCount, arguments);
    oakfen::Theme::apply(application);
    return RUN_ALL_TESTS();
}
