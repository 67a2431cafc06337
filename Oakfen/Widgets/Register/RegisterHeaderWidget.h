#pragma once

#include <QWidget>
#include <functional>

#include "Oakfen/Views/Register/RegisterView.h"

class QComboBox;
class QLineEdit;
class QToolButton;

namespace oakfen {

class ElidedLabel;

/// What stands above a register's table: the account's name, the tools, filter and search.
class RegisterHeaderWidget final : public QWidget {
    Q_OBJECT

public:
    explicit RegisterHeaderWidget(RegisterView& view, QWidget* parent = nullptr);

    /// Shows the account's names and what the person has chosen.
    void showContent(const RegisterContent& content);

    /// Called when the person goes back from the search to what it has found.
    std::function<void()> searchLeft = [] {};

    [[nodiscard]] QLineEdit* searchField() const { return search_; }

private:
    void setUpFilter();
    void setUpSearch();
    void addToolButtons(QLayout& row);
    QToolButton* addToolButton(QLayout& row, const QString& text, const char* symbolName,
                               const QString& tooltip, std::function<void()> action);

    RegisterView& view_;
    ElidedLabel* title_;
    ElidedLabel* subtitle_;
    QComboBox* filter_;
    QLineEdit* search_;
};

} // namespace oakfen
