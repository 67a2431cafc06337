#pragma once

#include <QLineEdit>
#include <functional>

#include "Oakfen/Views/AmountEntry.h"

namespace oakfen {

/// A field for an amount: shows two decimals, reads what people type or paste, and says why it
/// can't when it can't.
class AmountField final : public QLineEdit {
public:
    explicit AmountField(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] const Decimal& value() const { return entry_.value(); }
    void setValue(const Decimal& value);

    /// Whether the text stands for an amount.
    [[nodiscard]] bool isReadable() const { return entry_.explanation().empty(); }
    /// Why not; empty while it does.
    [[nodiscard]] QString explanation() const;

    /// Called after each change by the person.
    std::function<void()> edited = [] {};

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void readText(const QString& text);
    /// Puts the entry's text into the field, which nobody takes for typing.
    void showText();
    void showState();

    AmountEntry entry_;
};

} // namespace oakfen
