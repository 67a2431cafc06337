#pragma once

#include <QLineEdit>
#include <functional>

#include "Oakfen/Views/Components/TypedEntry.h"
#include "Oakfen/Widgets/Components/CheckedField.h"

namespace oakfen {

/// Whether a field that lost the focus so still is where the keyboard belongs, beneath a menu or
/// another window.
[[nodiscard]] bool isMomentary(const QFocusEvent& event);

/// Whether the key is Return or Enter, and nothing with it.
[[nodiscard]] bool isPlainReturn(const QKeyEvent& event);

/// A field for a value that is typed as text: shows it in its usual form, selects it all when it
/// is entered, and marks a text that can't be read and says why.
class EntryField : public QLineEdit, public CheckedField {
public:
    /// Whether the text stands for a value.
    [[nodiscard]] bool isReadable() const override { return entry().explanation().empty(); }
    [[nodiscard]] QString explanation() const override;
    void selectText() override { selectAll(); }

    /// What the tooltip says of the field while all is well, before how it is used.
    void setPurpose(const QString& purpose);

    /// Called after each change by the person.
    std::function<void()> edited = [] {};

protected:
    /// `help` is how the field is used.
    EntryField(const QString& title, QString help, QWidget* parent);

    [[nodiscard]] virtual const TypedEntry& entry() const = 0;
    [[nodiscard]] virtual TypedEntry& entry() = 0;

    /// Puts the entry's text into the field, which nobody takes for typing.
    void showEntry();
    /// Called whenever the text may be another.
    virtual void textShown() {}

    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void readText(const QString& text);
    void showState();

    QString purpose_;
    QString help_;
    /// Since the person came to the field, whichever windows and menus came before it meanwhile.
    bool isEntered_ = false;
};

} // namespace oakfen
