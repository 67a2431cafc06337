#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace oakfen {

/// Turns SIGTERM, SIGINT and SIGHUP into a call on the main thread, so that the program can save
/// before it ends. One at a time.
class UnixSignals {
public:
    explicit UnixSignals(std::function<void()> received);
    ~UnixSignals();
    UnixSignals(const UnixSignals&) = delete;
    UnixSignals& operator=(const UnixSignals&) = delete;

private:
    std::function<void()> received_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace oakfen
