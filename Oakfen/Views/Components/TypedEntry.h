#pragma once

#include <string>
#include <string_view>

namespace oakfen {

/// The state of a field for a value that is typed as text. While the person types, the text stays
/// as it is typed; a text that can't be read leaves the value as it was when they began, and says
/// why.
class TypedEntry {
public:
    virtual ~TypedEntry() = default;

    /// What the field shows.
    [[nodiscard]] const std::string& text() const { return text_; }
    /// Why the text can't be read; empty while it can.
    [[nodiscard]] const std::string& explanation() const { return explanation_; }

    /// The person typed: reads the text, but leaves it as it stands.
    void edit(std::string text);
    /// The person left the field: shows the held value in its usual form.
    void finishEditing();

protected:
    TypedEntry() = default;
    TypedEntry(const TypedEntry&) = default;
    TypedEntry& operator=(const TypedEntry&) = default;

    /// Shows the held value, which is the one to go back to from now on.
    void show();

private:
    [[nodiscard]] virtual std::string valueText() const = 0;
    virtual void rememberValue() = 0;
    virtual void restoreValue() = 0;
    /// Holds what the text means; else says why it means nothing.
    [[nodiscard]] virtual std::string take(std::string_view text) = 0;

    std::string text_;
    // What the field showed when the person began to type.
    std::string shown_;
    std::string explanation_;
};

} // namespace oakfen
