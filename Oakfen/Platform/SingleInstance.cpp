#include "Oakfen/Platform/SingleInstance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QLocalSocket>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "Oakfen/Widgets/Bridge.h"

namespace oakfen {

namespace {

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

/// The same for every way that leads to the file, and without saying where that is.
std::string fileIdentifier(const std::string& path) {
    std::error_code ignored;
    const auto canonical = std::filesystem::weakly_canonical(path, ignored);
    const QByteArray bytes =
        QByteArray::fromStdString(canonical.empty() ? path : canonical.string());
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256)
        .toHex()
        .left(32)
        .toStdString();
}

} // namespace

SingleInstance::SingleInstance(const std::string& dataFilePath) {
    const auto folder = runtimeFolder();
    if (!folder) {
        return;
    }
    const std::string base = *folder + "/oakfen-" + fileIdentifier(dataFilePath);
    socketPath_ = qt(base + ".socket");
    lock_ = ::open((base + ".lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (lock_ >= 0 && ::flock(lock_, LOCK_EX | LOCK_NB) != 0) {
        isFirst_ = errno != EWOULDBLOCK;
    }
}

SingleInstance::~SingleInstance() {
    server_.reset();
    if (lock_ >= 0) {
        ::close(lock_);
    }
}

void SingleInstance::listen(std::function<void()> raise) {
    if (socketPath_.isEmpty()) {
        return;
    }
    // We hold the lock, so a socket that is still there belongs to a program that was killed.
    QLocalServer::removeServer(socketPath_);
    server_ = std::make_unique<QLocalServer>();
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(server_.get(), &QLocalServer::newConnection, server_.get(),
                     [server = server_.get(), raise = std::move(raise)] {
                         while (QLocalSocket* socket = server->nextPendingConnection()) {
                             QObject::connect(socket, &QLocalSocket::disconnected, socket,
                                              &QObject::deleteLater);
                             socket->disconnectFromServer();
                             raise();
                         }
                     });
    server_->listen(socketPath_);
}

void SingleInstance::raiseFirst() const {
    constexpr int patienceInMilliseconds = 2000;
    QLocalSocket socket;
    socket.connectToServer(socketPath_);
    if (socket.waitForConnected(patienceInMilliseconds)) {
        socket.waitForDisconnected(patienceInMilliseconds);
    }
}

} // namespace oakfen
