#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "Oakfen/Views/Editors/TransactionEditor.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QToolButton;
class QVBoxLayout;

namespace oakfen {

class AmountField;
class CategoryPicker;
struct PickerCreation;

/// Makes categories from within the editor's pickers.
[[nodiscard]] PickerCreation categoryCreation(TransactionEditor& editor);

/// The lines of a split entry: a category, a memo and an amount each, and beneath them how much is
/// left to assign.
class SplitRowsWidget final : public QWidget {
public:
    explicit SplitRowsWidget(TransactionEditor& editor, QWidget* parent = nullptr);

    /// Shows the editor's present lines, and what they leave of the amount. Lines that are shown
    /// already stay as they are, with what is being typed there.
    void showLines();
    /// Goes to the first line.
    void focusFirstLine();

    /// Called after each change of a line.
    std::function<void()> edited = [] {};
    /// Called when the person no longer wants the entry to be split.
    std::function<void()> removed = [] {};

private:
    struct Row {
        UUID id;
        QWidget* frame;
        CategoryPicker* category;
        QLineEdit* memo;
        AmountField* amount;
        QToolButton* remove;
    };

    void reload();
    void showRemainder();
    /// A category that was made for one line can be chosen for the others.
    void listCategories();
    void addRow(const TransactionEditor::SplitDraft& line);
    void connectRow(const Row& row);
    void addLine();
    void removeLine(const UUID& id);
    void discard(const Row& row);
    /// Gives all amounts the width that the longest one needs.
    void alignAmounts();
    /// Fits the height to the lines, and lets Tab walk through them from top to bottom.
    void arrange();

    TransactionEditor& editor_;
    QScrollArea* area_;
    QVBoxLayout* lines_;
    QPushButton* add_;
    QPushButton* removeAll_;
    QLabel* remainder_;
    std::vector<Row> rows_;
};

} // namespace oakfen
