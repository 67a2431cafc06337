#include "Oakfen/Platform/DesktopBus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "Oakfen/Widgets/Theme/DesktopAppearance.h"

namespace oakfen::desktopBus {

namespace {

bool asksForFileDialogs() {
    constexpr int patience = 700; // milliseconds: the service may have to be started first
    if (!hasSessionBus() || !QDBusConnection::sessionBus().isConnected()) {
        return false;
    }
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << QStringLiteral("org.freedesktop.portal.FileChooser") << QStringLiteral("version");
    const QDBusMessage answer =
        QDBusConnection::sessionBus().call(question, QDBus::Block, patience);
    return answer.type() == QDBusMessage::ReplyMessage;
}

void openFolderOf(const QString& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
}

} // namespace

bool hasFileDialogs() {
    static const bool answer = asksForFileDialogs();
    return answer;
}

void showInFileManager(const QString& path) {
    if (!hasSessionBus() || !QDBusConnection::sessionBus().isConnected()) {
        openFolderOf(path);
        return;
    }
    QDBusMessage request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    request << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(request),
                                                QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, path] {
        if (watcher->isError()) {
            openFolderOf(path);
        }
        watcher->deleteLater();
    });
}

} // namespace oakfen::desktopBus
