#pragma once

#include <QObject>

namespace oakfen {

/// Lets Shift+F10 open the context menu of what has the focus: many keyboards have no key for it.
class ContextMenuKey final : public QObject {
    Q_OBJECT

public:
    /// In force in the whole application for as long as the parent lives.
    explicit ContextMenuKey(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace oakfen
