#pragma once

#include <QDBusVariant>
#include <QObject>
#include <functional>

namespace oakfen {

/// Asks the desktop whether it prefers dark windows and listens for changes of that. Never waits
/// for an answer; a desktop that can't tell simply never calls back.
class DesktopAppearance final : public QObject {
    Q_OBJECT

public:
    explicit DesktopAppearance(std::function<void(bool dark)> changed, QObject* parent = nullptr);

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask();
    void take(const QVariant& value);

    std::function<void(bool)> changed_;
};

} // namespace oakfen
