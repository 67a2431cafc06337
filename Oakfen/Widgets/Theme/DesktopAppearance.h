#pragma once

#include <QDBusMessage>
#include <QObject>
#include <functional>

namespace oakfen {

/// Whether there is a session bus. Where there is none, the bus library would try to start one.
[[nodiscard]] bool hasSessionBus();

/// Asks the desktop whether it prefers dark windows and listens for changes of that. Never waits
/// for an answer; a desktop that can't tell simply never calls back.
class DesktopAppearance final : public QObject {
    Q_OBJECT

public:
    explicit DesktopAppearance(std::function<void(bool dark)> changed, QObject* parent = nullptr);

private Q_SLOTS:
    /// The bus library connects to the whole message at once, but to its parts only after it has
    /// met their types, which at start it has not.
    void settingChanged(const QDBusMessage& message);

private:
    void ask();
    void take(const QVariant& value);

    std::function<void(bool)> changed_;
};

} // namespace oakfen
