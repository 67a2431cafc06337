#include "Oakfen/Views/Editors/SeveralEditor.h"

#include <algorithm>

#include "Oakfen/Views/Components/DateEntry.h"
#include "Oakfen/Views/Editors/TagsText.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

using Entries = std::vector<const Transaction*>;

/// What all of them have, if it is the same.
template <typename Value>
std::optional<Value> common(const Entries& entries, Value Transaction::*member) {
    const auto isLikeFirst = [&](const Transaction* entry) {
        return entry->*member == entries.front()->*member;
    };
    return !entries.empty() && std::ranges::all_of(entries, isLikeFirst)
               ? std::optional(entries.front()->*member)
               : std::nullopt;
}

} // namespace

SeveralEditor::SeveralEditor(AppEnvironment& environment, const ActiveSheet::EditSeveral& sheet)
    : environment_(environment), index_(environment.store.sharedIndex()) {
    for (const UUID& id : *sheet.ids) {
        if (const Transaction* entry = index_->transaction(id)) {
            entries_.push_back(entry);
        }
    }
    payee = SharedValue(common(entries_, &Transaction::payee));
    memo = SharedValue(common(entries_, &Transaction::memo));
    const auto tags = common(entries_, &Transaction::tags);
    tagsText = SharedValue(tags ? std::optional(joined(*tags, ", ")) : std::nullopt);
    const bool isOneDay =
        !entries_.empty() && std::ranges::all_of(entries_, [this](const Transaction* entry) {
            return isOnDay(entry->date, entries_.front()->date);
        });
    day = SharedValue(isOneDay ? std::optional(entries_.front()->date) : std::nullopt,
                      environment.clock.now());
}

bool SeveralEditor::isOnDay(Date date, Date other) const {
    const Calendar& calendar = environment_.clock.calendar();
    return date == other || calendar.startOfDay(date) == calendar.startOfDay(other);
}

std::string SeveralEditor::title() const {
    return "Edit " + countText(entries_.size()) + " Transactions";
}

std::string SeveralEditor::subtitle() const {
    const std::size_t changed = changedCount();
    if (changed == 0) {
        return "All stay as they are so far.";
    }
    const std::string all = countText(entries_.size());
    std::string text = changed == entries_.size()
                           ? "Changes all " + all + " transactions."
                           : "Changes " + countText(changed) + " of " + all + " transactions.";
    const bool isShared = !payee.isLeft() || !memo.isLeft() || !day.isLeft();
    if (isShared && std::ranges::any_of(entries_, &Transaction::isTransfer)) {
        text += " Transfers change in both accounts.";
    }
    return text;
}

std::size_t SeveralEditor::changedCount() const {
    const EntryChanges to = changes();
    const auto changed = std::ranges::count_if(entries_, [&](const Transaction* entry) {
        return entry->payee != to.payee.value_or(entry->payee) ||
               entry->memo != to.memo.value_or(entry->memo) ||
               (to.tags && entry->tags != *to.tags) ||
               (!day.isLeft() && !isOnDay(entry->date, day.value()));
    });
    return static_cast<std::size_t>(changed);
}

std::optional<std::string> SeveralEditor::obstacle() const {
    if (!payee.isLeft() && trimmingWhitespaces(payee.value()).empty()) {
        return "Enter a payee.";
    }
    return std::nullopt;
}

EntryChanges SeveralEditor::changes() const {
    EntryChanges changes{.payee = payee.change(), .memo = memo.change()};
    if (changes.payee) {
        changes.payee = trimmingWhitespaces(*changes.payee);
    }
    if (!tagsText.isLeft()) {
        changes.tags = tagsOf(tagsText.value());
    }
    if (!day.isLeft()) {
        const Calendar& calendar = environment_.clock.calendar();
        // As the field of a day does it for one entry.
        changes.date = [day = calendar.civil(day.value()),
                        entry = DateEntry(environment_.clock)](Date date) mutable {
            entry.setValue(date);
            entry.setDay(day.year, day.month, day.day);
            return entry.value();
        };
    }
    return changes;
}

void SeveralEditor::save() {
    UUIDSet ids;
    for (const Transaction* entry : entries_) {
        ids.insert(entry->id);
    }
    environment_.store.mutate("Edit Transactions", [&, to = changes()](Library& library) {
        changeEntries(library, to, ids);
    });
}

} // namespace oakfen
