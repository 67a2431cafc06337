#pragma once

#include "Oakfen/Views/Components/AmountEntry.h"
#include "Oakfen/Widgets/Components/EntryField.h"

namespace oakfen {

/// What a cell of the budget becomes while its amount is edited. The keys that lead from cell to
/// cell in a column of figures do so here.
class BudgetField final : public EntryField {
    Q_OBJECT

public:
    enum class Step { up, down, previous, next };

    explicit BudgetField(QWidget* parent = nullptr);

    /// What the text stands for, or stood for before it could not be read.
    [[nodiscard]] const Decimal& value() const { return entry_.value(); }
    /// Shows another value.
    void setValue(const Decimal& value);
    /// The width in which the whole text is seen.
    [[nodiscard]] int neededWidth() const;

    /// Called when the person goes on; returns whether there is a cell to go to.
    std::function<bool(Step)> stepped = [](Step) { return false; };
    /// Called when the person is through with the amount and stays: the keyboard has gone, a
    /// command is about to act, or a menu opens.
    std::function<void(bool hasLeft)> entered = [](bool) {};
    /// Called when the person takes back what was typed.
    std::function<void()> cancelled = [] {};
    /// Called when the text may need another width.
    std::function<void()> widthChanged = [] {};

    /// Nothing at all is readable too: nothing is planned.
    [[nodiscard]] bool isReadable() const override;

protected:
    [[nodiscard]] const TypedEntry& entry() const override { return entry_; }
    [[nodiscard]] TypedEntry& entry() override { return entry_; }
    void textShown() override { widthChanged(); }

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    AmountEntry entry_;
};

} // namespace oakfen
