#pragma once

#include "Oakfen/Views/Components/AmountEntry.h"
#include "Oakfen/Widgets/Components/EntryField.h"

namespace oakfen {

/// A field for an amount: shows two decimals, and reads what people type or paste.
class AmountField final : public EntryField {
public:
    explicit AmountField(const QString& title, AmountKind kind = AmountKind::money,
                         QWidget* parent = nullptr);

    /// What the text stands for, or stood for before it could not be read.
    [[nodiscard]] const Decimal& value() const { return entry_.value(); }
    /// Shows another value.
    void setValue(const Decimal& value);
    /// The width in which all of a usual amount, or of the present one if that is longer, is seen.
    [[nodiscard]] int neededWidth() const;

protected:
    [[nodiscard]] const TypedEntry& entry() const override { return entry_; }
    [[nodiscard]] TypedEntry& entry() override { return entry_; }
    /// Widens the field for a long amount: without its first digits, or its minus, it would look
    /// like another.
    void textShown() override;

private:
    AmountEntry entry_;
};

} // namespace oakfen
