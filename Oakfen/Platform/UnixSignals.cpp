#include "Oakfen/Platform/UnixSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <utility>

namespace oakfen {

namespace {

constexpr std::array handledSignals = {SIGTERM, SIGINT, SIGHUP};

/// What the handler writes to; it may do little else.
std::atomic<int> eventDescriptor = -1;

void handle(int /*signal*/) {
    const int savedError = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(eventDescriptor.load(), &one, sizeof one);
    errno = savedError;
}

void setHandler(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int signal : handledSignals) {
        ::sigaction(signal, &action, nullptr);
    }
}

} // namespace

UnixSignals::UnixSignals(std::function<void()> received) : received_(std::move(received)) {
    const int descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (descriptor < 0) {
        return;
    }
    eventDescriptor = descriptor;
    notifier_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this, descriptor] {
                         std::uint64_t count = 0;
                         if (::read(descriptor, &count, sizeof count) > 0) {
                             received_();
                         }
                     });
    setHandler(handle);
}

UnixSignals::~UnixSignals() {
    if (!notifier_) {
        return;
    }
    setHandler(SIG_DFL);
    notifier_.reset();
    ::close(eventDescriptor.exchange(-1));
}

} // namespace oakfen
