#include "Oakfen/Platform/SingleInstance.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QLocalSocket>
#include <QThread>
#include <utility>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/Support/Files/FileCalls.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

namespace {

/// A program that is just starting on a long document needs a moment to answer.
constexpr int patienceInMilliseconds = 10'000;

bool isOurPrivateFolder(const std::string& path) {
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::getuid() && (status.st_mode & 0077U) == 0;
}

/// The person's folder for what lasts as long as the session; one in /tmp where there is none.
std::optional<std::string> runtimeFolder() {
    const std::string given = qEnvironmentVariable("XDG_RUNTIME_DIR").toStdString();
    if (given.starts_with('/') && isOurPrivateFolder(given)) {
        return given;
    }
    const std::string own = "/tmp/oakfen-" + std::to_string(::getuid());
    ::mkdir(own.c_str(), 0700);
    // Somebody else could have made it before us.
    return isOurPrivateFolder(own) ? std::optional(own) : std::nullopt;
}

/// Names the data file in a folder that others may list, without saying what it is called.
std::string identifier(const std::string& path) {
    return QCryptographicHash::hash(QByteArray::fromStdString(path), QCryptographicHash::Sha256)
        .toHex()
        .left(32)
        .toStdString();
}

} // namespace

SingleInstance::SingleInstance(const std::string& dataFilePath, DataFileLock::AtTheEnd atTheEnd)
    : fileName_(fileCalls::nameOf(dataFilePath)), lock_(dataFilePath, atTheEnd) {
    const auto folder = runtimeFolder();
    if (lock_.state() != DataFileLock::State::held || !folder) {
        return;
    }
    const QString socketPath = qt(*folder + "/oakfen-" + identifier(dataFilePath) + ".socket");
    // We hold the lock, so a socket that is still there belongs to a program that was killed.
    QLocalServer::removeServer(socketPath);
    server_ = std::make_unique<QLocalServer>();
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    // From now on others can reach us; they are answered once the window is there.
    if (server_->listen(socketPath)) {
        lock_.announce(utf8(server_->fullServerName()));
    }
}

void SingleInstance::listen(std::function<void(const std::string& statementPath)> present) {
    if (!server_) {
        return;
    }
    const auto take = [server = server_.get(), present = std::move(present)] {
        while (QLocalSocket* socket = server->nextPendingConnection()) {
            QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            const auto answer = [socket, present] {
                if (socket->canReadLine()) {
                    const std::string path = socket->readLine().trimmed().toStdString();
                    socket->disconnectFromServer();
                    present(path);
                }
            };
            QObject::connect(socket, &QLocalSocket::readyRead, socket, answer);
            answer();
        }
    };
    QObject::connect(server_.get(), &QLocalServer::newConnection, server_.get(), take);
    take();
}

std::optional<DataFileLock::Holder> SingleInstance::patientHolder() const {
    // The first may be starting, and not have written yet where it listens.
    constexpr int millisecondsBetweenLooks = 50;
    std::optional<DataFileLock::Holder> holder = lock_.holder();
    constexpr int patienceForANote = 2000;
    for (int waited = 0; waited < patienceForANote; waited += millisecondsBetweenLooks) {
        if (holder && (!holder->isOnThisMachine || !holder->socketPath.empty())) {
            break;
        }
        QThread::msleep(millisecondsBetweenLooks);
        holder = lock_.holder();
    }
    return holder;
}

std::optional<std::string> SingleInstance::presentFirst(const std::string& statementPath) const {
    const std::optional<DataFileLock::Holder> holder = patientHolder();
    if (holder && !holder->isOnThisMachine) {
        return quoted(fileName_) + " is open on the computer " + quoted(holder->host) +
               ". Quit Oakfen there first.";
    }
    if (holder && !holder->socketPath.empty()) {
        QLocalSocket socket;
        socket.connectToServer(qt(holder->socketPath));
        if (socket.waitForConnected(patienceInMilliseconds)) {
            socket.write(QByteArray::fromStdString(statementPath + "\n"));
            if (socket.waitForDisconnected(patienceInMilliseconds)) {
                return std::nullopt;
            }
        }
    }
    return quoted(fileName_) + " is open in another Oakfen, which doesn’t answer. Quit it first.";
}

} // namespace oakfen
