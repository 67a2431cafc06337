#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Values/Observers.h"

namespace oakfen {

/// The documents that edits have left behind, and those that undoing has: named steps there and
/// back, one for each user event. What a step costs is only what its document doesn't share with
/// the next one.
class History {
public:
    /// Puts the document in the place of the present one, and the present one in its place. Returns
    /// false, having done nothing, when there is no longer any.
    using Swap = std::function<bool(Library& document)>;
    /// An edit, or another document in the place of the whole.
    enum class Kind { edit, replacement };

    /// What ends a day of ticking far below the memory of any computer that shows the ledger.
    static constexpr std::size_t defaultCapacity = 200'000'000;

    /// Beyond `capacity` bytes, neighbouring edits become one step, oldest first. A replacement
    /// stays a step of its own: people are told that they can take it back until the program ends.
    explicit History(std::size_t capacity = defaultCapacity) : capacity_(capacity) {}
    History(const History&) = delete;
    History& operator=(const History&) = delete;

    /// How steps reach the document.
    void setSwap(Swap swap) { swap_ = std::move(swap); }

    /// Adds the step that leads back from `after` to `before`, and forgets what could be redone.
    /// Within one user event the first document stays and the last name. What is recorded while a
    /// step is taken belongs to that step.
    void record(const std::string& name, const Library& before, const Library& after, Kind kind);

    /// Takes the last step; nothing when there is none. When that throws, the step stays.
    void undo();
    void redo();

    /// Whether a step is being taken at this moment: what the document gains and loses meanwhile
    /// comes back or goes again.
    [[nodiscard]] bool isTaking() const { return isTaking_; }
    [[nodiscard]] bool canUndo() const { return !past_.empty(); }
    [[nodiscard]] bool canRedo() const { return !future_.empty(); }
    /// The name of the step that `undo` would take; empty when there is none.
    [[nodiscard]] std::string undoActionName() const;
    [[nodiscard]] std::string redoActionName() const;

    void removeAllActions();

    /// What all steps hold beside the present document, in bytes; long texts are not counted.
    [[nodiscard]] std::size_t size() const;

    /// Told after either list of steps or a name changed.
    Observers<> changes;

private:
    friend class UserEvent;

    struct Step {
        std::string name;
        /// What taking the step brings back.
        Library document;
        Kind kind = Kind::edit;
        /// What the document doesn't share with that of the next step, or with the present one.
        std::size_t size = 0;
    };

    void take(std::vector<Step>& from, std::vector<Step>& to);
    /// Whether two neighbouring edits were found to become one.
    bool mergeOldest();

    std::size_t capacity_;
    Swap swap_;
    // Both with the nearest step last.
    std::vector<Step> past_;
    std::vector<Step> future_;
    bool isTaking_ = false;
    /// Everything was forgotten while a step was being taken.
    bool wasCleared_ = false;
    int eventDepth_ = 0;
    bool eventHasStep_ = false;
};

/// While it lives, all that is recorded is one step: what one command or one key did. Those within
/// it belong to the outermost.
class UserEvent {
public:
    explicit UserEvent(History& history);
    ~UserEvent();
    UserEvent(const UserEvent&) = delete;
    UserEvent& operator=(const UserEvent&) = delete;

private:
    History& history_;
};

} // namespace oakfen
