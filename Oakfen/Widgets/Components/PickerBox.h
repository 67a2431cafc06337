#pragma once

#include <QComboBox>
#include <functional>
#include <optional>
#include <vector>

#include "Oakfen/Views/Components/Components.h"

namespace oakfen {

/// A choice among the rows of a picker, with headers that can't be chosen. The person may type any
/// part of a row's title.
class PickerBox : public QComboBox {
public:
    explicit PickerBox(const QString& title, QWidget* parent = nullptr);

    /// Shows other rows; the choice stays if it is among them.
    void setRows(const std::vector<PickerRow>& rows);

    [[nodiscard]] std::optional<UUID> chosenID() const;
    /// Chooses the row of that id, or no row when there is none.
    void choose(const std::optional<UUID>& id);

    /// Takes the row that the typed text means; else goes back to the choice that was. Whether the
    /// text meant one.
    bool takeTypedText();

    /// Called when the person has chosen.
    std::function<void()> chosen = [] {};

protected:
    /// What the field says while nothing is chosen.
    void setPrompt(const QString& prompt);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// Whether the key was one that leaves the list of matches, and not only closes it.
    bool leaveListByKey(QKeyEvent& event);
    /// Takes the match that the person went to in the list, else what the typed text means.
    void takeMatch();

    /// The row of that title, else the first one with the text in its title; -1 for none. An
    /// emptied field means no choice, where that is one.
    [[nodiscard]] int rowOf(const QString& text) const;
    void showBeginning();

    std::vector<PickerRow> rows_;
};

/// A choice of an account.
class AccountPicker final : public PickerBox {
public:
    explicit AccountPicker(const QString& title, QWidget* parent = nullptr);
};

/// A choice of a category.
class CategoryPicker final : public PickerBox {
public:
    using PickerBox::PickerBox;
};

} // namespace oakfen
