#include "Oakfen/Widgets/Theme/DesktopAppearance.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>

namespace oakfen {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString objectPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interfaceName = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");

} // namespace

bool hasSessionBus() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR") &&
            QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus")));
}

DesktopAppearance::DesktopAppearance(std::function<void(bool)> changed, QObject* parent)
    : QObject(parent), changed_(std::move(changed)) {
    if (hasSessionBus() && QDBusConnection::sessionBus().isConnected()) {
        QDBusConnection::sessionBus().connect(service, objectPath, interfaceName,
                                              QStringLiteral("SettingChanged"), this,
                                              SLOT(settingChanged(QDBusMessage)));
        ask();
    }
}

void DesktopAppearance::ask() {
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, objectPath, interfaceName, QStringLiteral("Read"));
    call << appearanceGroup << colorSchemeKey;
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid()) {
            take(reply.value().variant());
        }
        watcher->deleteLater();
    });
}

void DesktopAppearance::settingChanged(const QDBusMessage& message) {
    const QVariantList setting = message.arguments();
    if (setting.value(0) == appearanceGroup && setting.value(1) == colorSchemeKey) {
        take(setting.value(2));
    }
}

void DesktopAppearance::take(const QVariant& value) {
    // Some desktops wrap the value twice.
    if (value.canConvert<QDBusVariant>()) {
        take(value.value<QDBusVariant>().variant());
        return;
    }
    bool isNumber = false;
    const uint scheme = value.toUInt(&isNumber);
    if (isNumber) {
        constexpr uint preferDark = 1;
        changed_(scheme == preferDark);
    }
}

} // namespace oakfen
