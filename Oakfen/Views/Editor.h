#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Oakfen/Panels.h"

namespace oakfen {

/// What all sheets that edit one thing have in common: they work on a draft, and the document
/// changes only with `save` and `performDelete`. What the sheet is called, whether it can be saved
/// and what stands in the way is said here, once; a widget shows it.
class Editor {
public:
    Editor& operator=(const Editor&) = delete;
    virtual ~Editor() = default;

    [[nodiscard]] virtual std::string title() const = 0;
    /// A line beneath the title; empty for none.
    [[nodiscard]] virtual std::string subtitle() const { return {}; }
    /// What the button is called that saves.
    [[nodiscard]] virtual std::string primaryTitle() const { return "Save"; }

    /// Why the draft can't be saved yet, for the person to read; absent when it can.
    [[nodiscard]] virtual std::optional<std::string> obstacle() const = 0;
    [[nodiscard]] bool canSave() const { return !obstacle(); }
    virtual void save() = 0;

    /// What is asked before the edited thing is deleted; absent where there is nothing to delete.
    [[nodiscard]] virtual std::optional<ConfirmationRequest> deleteConfirmation() const {
        return std::nullopt;
    }
    /// Deletes it, after the person confirmed.
    virtual void performDelete() {}

protected:
    Editor() = default;
    Editor(const Editor&) = default;
};

} // namespace oakfen
