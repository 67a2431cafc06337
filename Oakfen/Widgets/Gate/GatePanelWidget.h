#pragma once

#include <QFrame>

#include "Oakfen/Views/Gate/PasswordViews.h"

class QPushButton;
class QVBoxLayout;

namespace oakfen {

class WrappedLabel;

/// The common frame of the gate's panels: icon, title, message, and below them what the panel adds:
/// its fields, then its buttons. Return presses the default button and Escape the cancel button, as
/// in a dialog.
class GatePanelWidget final : public QFrame {
    Q_OBJECT

public:
    /// What is left of the panel's width for its content.
    static constexpr int contentWidth = 398;

    explicit GatePanelWidget(const GatePanelText& text, QWidget* parent = nullptr);

    [[nodiscard]] QVBoxLayout& fields() { return *fields_; }
    [[nodiscard]] QVBoxLayout& buttons() { return *buttons_; }

    void setDefaultButton(QPushButton* button);
    void setCancelButton(QPushButton* button) { cancelButton_ = button; }

    /// The text between fields and buttons that tells of a failure; hidden while there is none.
    void setErrorText(const std::optional<std::string>& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QVBoxLayout* fields_;
    QVBoxLayout* buttons_;
    QWidget* errorRow_;
    WrappedLabel* errorLabel_;
    QPushButton* defaultButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
};

} // namespace oakfen
