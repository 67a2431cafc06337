#pragma once

#include <QWidget>
#include <functional>

#include "Oakfen/Views/Gate/PasswordViews.h"

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QProgressBar;

namespace oakfen {

class WrappedLabel;

/// The two fields of a new password with the strength meter, the choice to remember it and the
/// hint. Writes what is typed into the form at once.
class NewPasswordFields final : public QWidget {
    Q_OBJECT

public:
    NewPasswordFields(NewPasswordForm& form, std::function<void()> changed,
                      QWidget* parent = nullptr);

private:
    void refresh();

    NewPasswordForm& form_;
    std::function<void()> changed_;
    QFormLayout* fields_;
    QLineEdit* password_;
    QLineEdit* confirm_;
    QWidget* strengthRow_;
    QProgressBar* strengthBar_;
    QLabel* strengthWord_;
    QCheckBox* remember_;
    WrappedLabel* rememberCaption_;
    WrappedLabel* hint_;
};

/// The row of buttons under the fields.
struct PasswordChoiceActions {
    QString cancelHelp;
    QString submitTitle;
    std::function<void()> cancel;
    std::function<void()> useNoPassword;
    std::function<void()> submit;
};

/// "Cancel", "Don’t Use a Password" and the submitting button, in that order.
struct PasswordChoiceButtons {
    QWidget* row;
    QPushButton* cancel;
    QPushButton* useNoPassword;
    QPushButton* submit;
};

[[nodiscard]] PasswordChoiceButtons makePasswordChoiceButtons(const PasswordChoiceActions& actions,
                                                              QWidget* parent);

} // namespace oakfen
