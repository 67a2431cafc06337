#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>

class QLabel;
class QPushButton;

namespace oakfen {

/// A quiet line above a register's table that says what it hides, with a button that shows it.
class RegisterNoticeWidget final : public QWidget {
    Q_OBJECT

public:
    explicit RegisterNoticeWidget(QWidget* parent = nullptr);

    /// Shows the line, or goes away without one.
    void showNotice(const std::optional<std::string>& notice);

    /// Called when the person wants to see it.
    std::function<void()> wanted = [] {};

    [[nodiscard]] QPushButton* showButton() const { return button_; }

private:
    QLabel* text_;
    QPushButton* button_;
};

} // namespace oakfen
