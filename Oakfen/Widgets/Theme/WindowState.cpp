#include "Oakfen/Widgets/Theme/WindowState.h"

#include <QSettings>
#include <QVariantMap>
#include <optional>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/Platform/UserFolders.h"

namespace oakfen::windowState {

namespace {

// Asked for at each use, as the folder follows the environment.
QString fileName() {
    return qt(userStateFolder() + "/Oakfen/Window.ini");
}

/// In place of the file, while there is one.
std::optional<QVariantMap>& memory() {
    static std::optional<QVariantMap> values;
    return values;
}

} // namespace

InMemory::InMemory() {
    memory().emplace();
}

InMemory::~InMemory() {
    memory().reset();
}

QVariant value(const QString& key) {
    if (memory()) {
        return memory()->value(key);
    }
    const QSettings settings(fileName(), QSettings::IniFormat);
    return settings.value(key);
}

void setValue(const QString& key, const QVariant& value) {
    if (memory()) {
        memory()->insert(key, value);
        return;
    }
    QSettings settings(fileName(), QSettings::IniFormat);
    if (settings.value(key) != value) {
        settings.setValue(key, value);
    }
}

} // namespace oakfen::windowState
