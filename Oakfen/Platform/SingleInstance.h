#pragma once

#include <QLocalServer>
#include <functional>
#include <memory>
#include <string>

namespace oakfen {

/// One program per data file: a lock that the kernel drops with the process, and a local socket
/// through which a second start asks the first one to show its window.
class SingleInstance {
public:
    explicit SingleInstance(const std::string& dataFilePath);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// False when another program has the file open. Where no lock can be made at all, we go on
    /// without one.
    [[nodiscard]] bool isFirst() const { return isFirst_; }

    /// Calls back whenever another start asks for the window.
    void listen(std::function<void()> raise);

    /// Asks the first program to show its window.
    void raiseFirst() const;

private:
    QString socketPath_;
    int lock_ = -1;
    bool isFirst_ = true;
    std::unique_ptr<QLocalServer> server_;
};

} // namespace oakfen
