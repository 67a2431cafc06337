#pragma once

#include <QComboBox>
#include <QPointer>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Oakfen/Views/Components/PickerMatches.h"
#include "Oakfen/Widgets/Components/CheckedField.h"

namespace oakfen {

class PickerList;

/// How the person makes from within a picker what its list lacks.
struct PickerCreation {
    /// What can be made of the typed text.
    std::function<CategoryOffer(const std::string& typed)> offer;
    /// Makes it, and returns the row that stands for it.
    std::function<PickerRow(const std::string& path)> make;
};

/// A choice among the rows of a picker, with headers that can't be chosen. The person may type any
/// part of a row's title. A click, an arrow key or typing opens the list, inside the window; the
/// keyboard stays in the field. A text that means no row is marked and stays until another is
/// typed or Escape takes it back.
class PickerBox : public QComboBox, public CheckedField {
public:
    explicit PickerBox(const QString& title, QWidget* parent = nullptr)
        : PickerBox(title, PickerSubject::record, parent) {}
    ~PickerBox() override;

    /// Shows other rows; the choice stays if it is among them, and so does what is half typed.
    void setRows(const std::vector<PickerRow>& rows);
    /// Lets the person make what the list lacks.
    void setCreation(PickerCreation creation) { creation_ = std::move(creation); }

    [[nodiscard]] std::optional<UUID> chosenID() const;
    /// Chooses the row of that id, or no row when there is none.
    void choose(const std::optional<UUID>& id);

    /// Takes the row that the typed text means. A text that means none stays and is marked, and
    /// the choice is the one that was. Whether the text means one.
    bool takeTypedText();

    [[nodiscard]] bool isReadable() const override { return explanation_.isEmpty(); }
    [[nodiscard]] QString explanation() const override { return explanation_; }
    void selectText() override;

    /// The list while it is open, else null.
    [[nodiscard]] PickerList* list() const;
    void showPopup() override;
    void hidePopup() override;

    /// Called when the person has chosen.
    std::function<void()> chosen = [] {};

protected:
    PickerBox(const QString& title, PickerSubject subject, QWidget* parent);

    /// What the field says while nothing is chosen.
    void setPrompt(const QString& prompt);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    /// Whether the text is another than that of the choice.
    [[nodiscard]] bool isTyped() const;
    [[nodiscard]] std::optional<std::size_t> typedRow() const;
    [[nodiscard]] CategoryOffer offer() const;
    void addRowItem(const PickerRow& row);

    /// Opens the list, or lists anew what fits the text.
    void showMatches();
    void placeList();
    void openByClick();
    /// A press of the left button in the text.
    bool answerPress(const QEvent& event);
    /// Whether an event elsewhere ends the list.
    [[nodiscard]] bool endsList(const QObject& target, const QEvent& event) const;
    /// Takes the highlighted line, if the list is open and has one. Whether it did.
    bool takeHighlighted();
    void takeLine(const PickerLine& line);
    void takeRow(std::size_t row);
    void answerReturn(QKeyEvent& event);
    /// Takes the typing back.
    void showChoice();
    /// Marks a text that means nothing.
    void showState();
    void showBeginning();

    PickerSubject subject_;
    std::vector<PickerRow> rows_;
    PickerCreation creation_;
    QString explanation_;
    /// What the field says of itself while all is well.
    QString purpose_;
    QString help_;
    QPointer<PickerList> list_;
    bool isPressed_ = false;
};

/// A choice of an account.
class AccountPicker final : public PickerBox {
public:
    explicit AccountPicker(const QString& title, QWidget* parent = nullptr);
};

/// A choice of a category.
class CategoryPicker final : public PickerBox {
public:
    explicit CategoryPicker(const QString& title, QWidget* parent = nullptr)
        : PickerBox(title, PickerSubject::category, parent) {}
};

} // namespace oakfen
