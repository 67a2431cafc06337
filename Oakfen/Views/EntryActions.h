#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/MenuEntry.h"
#include "Oakfen/Views/Lifetime.h"

namespace oakfen {

/// What can be done with the entries of a list, be they of one account or of many. Each act is one
/// step of undo, however many entries it touches.
class EntryActions {
public:
    EntryActions(const EntryActions&) = delete;
    EntryActions& operator=(const EntryActions&) = delete;

    /// A click on the state's mark: uncleared becomes cleared and back; reconciled stays.
    void toggleCleared(const UUID& id);
    /// The same for several at once: while one of them is uncleared, those become cleared, else
    /// all become uncleared.
    void toggleCleared(const UUIDSet& ids);
    void markAs(ClearedState state, const UUIDSet& ids);
    /// Opens the sheet in which the person chooses a category for them.
    void chooseCategory(const UUIDSet& ids);
    /// Enters a copy dated now; a transfer's copy is a new transfer.
    void duplicate(const UUID& id);
    /// Opens the sheet of a reminder that lets the entry come again.
    void makeReminder(const UUID& id);
    /// Shows the other account of a transfer, with the other leg selected.
    void goToTransfer(const UUID& id);
    /// Opens the entry in its editor.
    void editTransaction(const UUID& id);

    /// What can be done with these entries. The view must outlive it.
    [[nodiscard]] std::vector<MenuEntry> contextMenu(const UUIDSet& ids);

    /// Asks whether to delete the entries; does it once confirmed.
    void requestDelete(const UUIDSet& ids);
    /// Entries that wait for the answer whether to delete them.
    [[nodiscard]] const UUIDSet& pendingDelete() const { return pendingDelete_; }

protected:
    /// The entries that a menu is about. Its lines share them, since they may be a hundred
    /// thousand.
    using SharedIDs = std::shared_ptr<const UUIDSet>;

    explicit EntryActions(AppEnvironment& environment) : environment_(environment) {}
    virtual ~EntryActions() = default;

    /// All that can be done with one entry or many, in its order; what can't be done with these is
    /// disabled.
    [[nodiscard]] virtual std::vector<MenuEntry> rowMenu(const SharedIDs& ids);

    /// After these were deleted.
    virtual void deleted(const UUIDSet& /*ids*/) {}

private:
    [[nodiscard]] std::vector<MenuEntry> menuForOne(const std::optional<UUID>& id);
    [[nodiscard]] std::vector<MenuEntry> markMenu(const SharedIDs& ids);
    /// Whether any of them is no transfer.
    [[nodiscard]] bool canBeCategorized(const UUIDSet& ids) const;
    [[nodiscard]] ConfirmationRequest deleteConfirmation() const;
    void confirmDelete();

    template <typename Function>
    [[nodiscard]] auto whileAlive(Function function) const {
        return lifetime_.whileAlive(std::move(function));
    }

    AppEnvironment& environment_;
    UUIDSet pendingDelete_;
    Lifetime lifetime_;
};

} // namespace oakfen
