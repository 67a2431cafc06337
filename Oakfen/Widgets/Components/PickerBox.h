#pragma once

#include <QComboBox>
#include <functional>
#include <optional>
#include <vector>

#include "Oakfen/Views/Components.h"

namespace oakfen {

/// A choice among the rows of a picker, with headers that can't be chosen.
class PickerBox : public QComboBox {
public:
    explicit PickerBox(const QString& title, QWidget* parent = nullptr);

    /// Shows other rows; the choice stays if it is among them.
    void setRows(const std::vector<PickerRow>& rows);

    [[nodiscard]] std::optional<UUID> chosenID() const;
    /// Chooses the row of that id, or no row when there is none.
    void choose(const std::optional<UUID>& id);

    /// Called when the person has chosen.
    std::function<void()> chosen = [] {};

private:
    std::vector<PickerRow> rows_;
};

/// A choice of an account.
class AccountPicker final : public PickerBox {
public:
    using PickerBox::PickerBox;
};

/// A choice of a category. The person may type any part of its path.
class CategoryPicker final : public PickerBox {
public:
    explicit CategoryPicker(const QString& title, QWidget* parent = nullptr);

protected:
    void focusOutEvent(QFocusEvent* event) override;

private:
    void takeTypedText();
};

} // namespace oakfen
