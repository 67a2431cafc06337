#include "Oakfen/Widgets/WindowState.h"

#include <QSettings>

#include "Oakfen/Widgets/Bridge.h"
#include "OakfenCore/Platform/UserFolders.h"

namespace oakfen::windowState {

namespace {

// Asked for at each use, as the folder follows the environment.
QString fileName() {
    return qt(userStateFolder() + "/Oakfen/Window.ini");
}

} // namespace

QVariant value(const QString& key) {
    const QSettings settings(fileName(), QSettings::IniFormat);
    return settings.value(key);
}

void setValue(const QString& key, const QVariant& value) {
    QSettings settings(fileName(), QSettings::IniFormat);
    if (settings.value(key) != value) {
        settings.setValue(key, value);
    }
}

} // namespace oakfen::windowState
