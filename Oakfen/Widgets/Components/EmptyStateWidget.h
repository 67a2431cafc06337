#pragma once

#include <QWidget>
#include <functional>

#include "Oakfen/Views/Components/EmptyState.h"

class QHBoxLayout;
class QPushButton;

namespace oakfen {

/// A quiet picture and a few words in the middle of an area that has nothing to list, with buttons
/// for what can be done about it.
class EmptyStateWidget final : public QWidget {
    Q_OBJECT

public:
    explicit EmptyStateWidget(const EmptyState& state, QWidget* parent = nullptr);

    /// Appends a button; the first one that is prominent is the one to press.
    QPushButton* addButton(const QString& title, bool isProminent, std::function<void()> action);

private:
    QHBoxLayout* buttons_;
};

} // namespace oakfen
