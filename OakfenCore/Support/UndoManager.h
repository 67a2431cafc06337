#pragma once

#include <functional>
#include <string>
#include <vector>

#include "OakfenCore/Support/Observers.h"

namespace oakfen {

/// Named undo and redo actions, grouped per user event.
///
/// What is registered between `beginEvent` and `endEvent` (or outside of both, each by itself) is
/// one step. An action that registers while it is being undone is filed as redo, and one that
/// registers while being redone as undo, under the same name unless it gives another; a new action
/// clears redo.
class UndoManager {
public:
    using Action = std::function<void()>;

    void registerUndo(Action action);
    /// Names the step that was registered last.
    void setActionName(const std::string& name);

    void beginEvent();
    void endEvent();

    /// Runs the last step's actions, latest first; nothing when there is none. What an action
    /// throws is passed on; it and the actions that were not run stay a step.
    void undo();
    void redo();

    [[nodiscard]] bool canUndo() const { return !undoStack_.empty(); }
    [[nodiscard]] bool canRedo() const { return !redoStack_.empty(); }
    /// The name of the step that `undo` would take back; empty when there is none.
    [[nodiscard]] std::string undoActionName() const;
    [[nodiscard]] std::string redoActionName() const;
    [[nodiscard]] bool isUndoing() const { return state_ == State::undoing; }
    [[nodiscard]] bool isRedoing() const { return state_ == State::redoing; }

    void removeAllActions();

    /// Told after either stack or a name changed.
    Observers<> changes;

private:
    enum class State { idle, undoing, redoing };
    struct Step {
        std::string name;
        std::vector<Action> actions;
    };

    void take(std::vector<Step>& from, std::vector<Step>& to, State state);

    std::vector<Step> undoStack_;
    std::vector<Step> redoStack_;
    /// While undoing or redoing: what is still to run, and what was registered meanwhile.
    Step running_;
    Step reverse_;
    State state_ = State::idle;
    int eventDepth_ = 0;
    bool eventHasStep_ = false;
};

} // namespace oakfen
