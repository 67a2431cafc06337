#pragma once

#include <QString>

namespace oakfen {

/// A field that people type into and whose text may mean nothing. Such a text stays, marked, and
/// holds what would use the field's value.
class CheckedField {
public:
    /// Whether the text means something.
    [[nodiscard]] virtual bool isReadable() const = 0;
    /// Why not; empty while it does.
    [[nodiscard]] virtual QString explanation() const = 0;
    /// Selects the whole text, to be typed over.
    virtual void selectText() = 0;

protected:
    CheckedField() = default;
    ~CheckedField() = default;
    CheckedField(const CheckedField&) = default;
    CheckedField& operator=(const CheckedField&) = default;
};

} // namespace oakfen
