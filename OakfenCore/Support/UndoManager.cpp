#include "OakfenCore/Support/UndoManager.h"

#include <utility>

namespace oakfen {

void UndoManager::registerUndo(Action action) {
    if (state_ != State::idle) {
        reverse_.actions.push_back(std::move(action));
        return;
    }
    redoStack_.clear();
    if (eventDepth_ == 0 || !eventHasStep_) {
        undoStack_.emplace_back();
        eventHasStep_ = eventDepth_ > 0;
    }
    undoStack_.back().actions.push_back(std::move(action));
    changes.notify();
}

void UndoManager::setActionName(const std::string& name) {
    if (state_ != State::idle) {
        reverse_.name = name;
        return;
    }
    if (!undoStack_.empty()) {
        undoStack_.back().name = name;
        changes.notify();
    }
}

void UndoManager::beginEvent() {
    ++eventDepth_;
}

void UndoManager::endEvent() {
    if (eventDepth_ > 0 && --eventDepth_ == 0) {
        eventHasStep_ = false;
    }
}

void UndoManager::undo() {
    take(undoStack_, redoStack_, State::undoing);
}

void UndoManager::redo() {
    take(redoStack_, undoStack_, State::redoing);
}

void UndoManager::take(std::vector<Step>& from, std::vector<Step>& to, State state) {
    if (state_ != State::idle || from.empty()) {
        return;
    }
    running_ = std::move(from.back());
    from.pop_back();
    reverse_ = Step{.name = running_.name};
    state_ = state;
    // What is registered later in the same event is not part of a step that was taken back.
    eventHasStep_ = false;
    const auto finish = [&] {
        state_ = State::idle;
        // After an action that threw, what was not run remains to be run.
        if (!running_.actions.empty()) {
            from.push_back(std::exchange(running_, {}));
        }
        if (!reverse_.actions.empty()) {
            to.push_back(std::exchange(reverse_, {}));
        }
        changes.notify();
    };
    try {
        while (!running_.actions.empty()) {
            const Action action = running_.actions.back();
            action();
            if (!running_.actions.empty()) {
                running_.actions.pop_back();
            }
        }
    } catch (...) {
        finish();
        throw;
    }
    finish();
}

std::string UndoManager::undoActionName() const {
    return undoStack_.empty() ? std::string() : undoStack_.back().name;
}

std::string UndoManager::redoActionName() const {
    return redoStack_.empty() ? std::string() : redoStack_.back().name;
}

void UndoManager::removeAllActions() {
    undoStack_.clear();
    redoStack_.clear();
    running_.actions.clear();
    reverse_.actions.clear();
    eventHasStep_ = false;
    changes.notify();
}

} // namespace oakfen
