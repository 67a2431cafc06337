#include "OakfenCore/LibraryStore/History.h"

#include <cstddef>
#include <tuple>
#include <utility>

#include "OakfenCore/Models/RecordFields.h"
#include "OakfenCore/Support/Values/UnsharedChunks.h"

namespace oakfen {

namespace {

template <typename Value>
std::size_t unsharedSize(const Value& /*field*/, const Value& /*neighbour*/) {
    return 0;
}

/// Each map has its nodes for itself.
std::size_t unsharedSize(const std::map<UUID, Decimal>& budget,
                         const std::map<UUID, Decimal>& /*neighbour*/) {
    constexpr std::size_t node = sizeof(std::pair<const UUID, Decimal>) + 4 * sizeof(void*);
    return budget.size() * node;
}

/// Unshared chunks, and the table of all, which each array has for itself.
template <typename Record>
std::size_t unsharedSize(const SharedArray<Record>& records, const SharedArray<Record>& neighbour) {
    std::size_t size =
        records.chunks().size() * (sizeof(records.chunks().front()) + sizeof(std::size_t));
    forEachUnsharedChunk(records, neighbour,
                         [&](const auto& chunk) { size += chunk.capacity() * sizeof(Record); });
    return size;
}

std::size_t unsharedSize(const Library& library, const Library& neighbour) {
    return std::apply(
        [&](const auto&... fields) {
            return (unsharedSize(library.*fields.member, neighbour.*fields.member) + ...);
        },
        fieldsOf<Library>);
}

} // namespace

void History::record(const std::string& name, const Library& before, const Library& after,
                     Kind kind) {
    if (isTaking_) {
        return;
    }
    future_.clear();
    if (eventHasStep_) {
        Step& step = past_.back();
        step.name = name;
        step.size = unsharedSize(step.document, after);
        step.kind = kind == Kind::replacement ? kind : step.kind;
    } else {
        past_.push_back({name, before, kind, unsharedSize(before, after)});
        eventHasStep_ = eventDepth_ > 0;
    }
    while (size() > capacity_ && mergeOldest()) {
    }
    changes.notify();
}

bool History::mergeOldest() {
    // The last step stays as it is: it can be taken back by itself, and its event may go on.
    for (std::size_t older = 0; older + 2 < past_.size(); ++older) {
        const std::size_t newer = older + 1;
        if (past_[older].kind == Kind::edit && past_[newer].kind == Kind::edit) {
            if (past_[older].name != past_[newer].name) {
                past_[older].name = "Earlier Changes";
            }
            past_[older].size = unsharedSize(past_[older].document, past_[newer + 1].document);
            past_.erase(past_.begin() + static_cast<std::ptrdiff_t>(newer));
            return true;
        }
    }
    return false;
}

void History::undo() {
    take(past_, future_);
}

void History::redo() {
    take(future_, past_);
}

void History::take(std::vector<Step>& from, std::vector<Step>& to) {
    if (isTaking_ || from.empty() || !swap_) {
        return;
    }
    Step step = std::move(from.back());
    from.pop_back();
    const Library wanted = step.document;
    isTaking_ = true;
    wasCleared_ = false;
    // What is recorded later in the same event is no part of a step that was taken back.
    eventHasStep_ = false;
    const auto keep = [&](std::vector<Step>& steps) {
        isTaking_ = false;
        if (!wasCleared_) {
            steps.push_back(std::move(step));
        }
        changes.notify();
    };
    bool isDone = false;
    try {
        isDone = swap_(step.document);
    } catch (...) {
        keep(from);
        throw;
    }
    if (isDone) {
        step.size = unsharedSize(step.document, wanted);
        keep(to);
    } else {
        isTaking_ = false;
        changes.notify();
    }
}

std::string History::undoActionName() const {
    return past_.empty() ? std::string() : past_.back().name;
}

std::string History::redoActionName() const {
    return future_.empty() ? std::string() : future_.back().name;
}

void History::removeAllActions() {
    past_.clear();
    future_.clear();
    wasCleared_ = true;
    eventHasStep_ = false;
    changes.notify();
}

std::size_t History::size() const {
    std::size_t size = 0;
    for (const std::vector<Step>* steps : {&past_, &future_}) {
        for (const Step& step : *steps) {
            size += step.size;
        }
    }
    return size;
}

UserEvent::UserEvent(History& history) : history_(history) {
    ++history_.eventDepth_;
}

UserEvent::~UserEvent() {
    if (--history_.eventDepth_ == 0) {
        history_.eventHasStep_ = false;
    }
}

} // namespace oakfen
