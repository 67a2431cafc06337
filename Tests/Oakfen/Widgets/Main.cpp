#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

#include "Oakfen/Widgets/Theme.h"
#include "OakfenCore/Support/Locale.h"

/// The tests see no display, no desktop and nothing of the person's own folders.
int main(int argumentCount, char** arguments) {
    const QTemporaryDir home;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("HOME", home.path().toUtf8());
    for (const char* folder : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME"}) {
        qputenv(folder, home.filePath(QString::fromLatin1(folder)).toUtf8());
    }
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    oakfen::setUserLocale("en_CA");
    ::testing::InitGoogleTest(&argumentCount, arguments);
    QApplication application(argumentCount, arguments);
    oakfen::Theme::apply(application);
    return RUN_ALL_TESTS();
}
