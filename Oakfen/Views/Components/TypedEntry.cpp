#include "Oakfen/Views/Components/TypedEntry.h"

#include <utility>

namespace oakfen {

void TypedEntry::edit(std::string text) {
    text_ = std::move(text);
    explanation_.clear();
    restoreValue();
    // The text may say less than the value does, so typing it again is no change.
    if (text_ != shown_) {
        explanation_ = take(text_);
    }
}

void TypedEntry::finishEditing() {
    if (explanation_.empty()) {
        show();
    }
}

void TypedEntry::show() {
    rememberValue();
    shown_ = valueText();
    text_ = shown_;
    explanation_.clear();
}

} // namespace oakfen
