#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "Oakfen/Panels.h"

namespace oakfen {

/// A way to end a sheet beside saving it: "Withdraw" beside "Add".
struct SecondAction {
    std::string title;
    /// What it does, for its tooltip.
    std::string help;
    /// Why it can't be done yet; absent when it can.
    std::optional<std::string> obstacle = {};
    /// What is asked before it is done, if anything.
    std::optional<ConfirmationRequest> confirmation = {};
};

/// What all sheets that edit one thing have in common: they work on a draft, and the document
/// changes only with `save`, the second action and `performDelete`. What the sheet is called,
/// whether it can be saved and what stands in the way is said here, once; a widget shows it.
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
    /// Where it throws a `LocalizedError`, the sheet says why and stays.
    virtual void save() = 0;

    /// Absent where saving is all there is to do, which is so from the beginning or never.
    [[nodiscard]] virtual std::optional<SecondAction> secondAction() const { return std::nullopt; }
    /// Does it, as `save` does.
    virtual void performSecondAction() {}

    /// What is asked before the edited thing is deleted; absent where there is nothing to delete.
    [[nodiscard]] virtual std::optional<ConfirmationRequest> deleteConfirmation() const {
        return std::nullopt;
    }
    /// Deletes it, after the person confirmed.
    virtual void performDelete() {}

    /// What goes on in the background since an action began, for the person to read:
    /// "Encrypting…"; empty while nothing does. Meanwhile the sheet takes nothing else.
    [[nodiscard]] const std::string& work() const { return work_; }
    [[nodiscard]] bool isWorking() const { return !work_.empty(); }
    /// Called when that has ended: why it failed, or nothing if the sheet can be closed.
    std::function<void(const std::optional<std::string>& failure)> workEnded = [](const auto&) {};

protected:
    Editor() = default;
    Editor(const Editor&) = default;

    /// Said by an action that goes on after it has returned, until it says `endWork`.
    void beginWork(std::string work) { work_ = std::move(work); }
    void endWork(const std::optional<std::string>& failure = {}) {
        work_.clear();
        workEnded(failure);
    }

private:
    std::string work_;
};

} // namespace oakfen
