#include "OakfenCore/Importers/CSVScanner.h"

#include "OakfenCore/Importers/Characters.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

bool CSVScanner::nextRow() {
    while (nextCell()) {
    }
    while (ending_ != Ending::text) {
        field_ = scanField();
        ending_ = scanEnding();
        hasField_ = ending_ == Ending::comma || !field_.empty();
        if (hasField_) {
            return true;
        }
    }
    return false;
}

std::optional<std::string_view> CSVScanner::nextCell() {
    if (!hasField_) {
        if (ending_ != Ending::comma) {
            return std::nullopt;
        }
        field_ = scanField();
        ending_ = scanEnding();
    }
    hasField_ = false;
    return trimmingWhitespaces(field_);
}

/// Reads up to the comma or line end that ends the field.
std::string_view CSVScanner::scanField() {
    unquoted_.clear();
    bool isPlain = true;
    std::size_t runStart = position_;
    while (position_ < text_.size()) {
        const char letter = text_[position_];
        if (letter == '\n' || letter == '\r') {
            break;
        }
        if ((letter == ',' || letter == '"') && isWholeCharacter(text_, position_)) {
            if (letter == ',') {
                break;
            }
            isPlain = false;
            unquoted_.append(text_, runStart, position_ - runStart);
            ++position_;
            runStart = scanQuoted();
            continue;
        }
        ++position_;
    }
    const std::string_view run = text_.substr(runStart, position_ - runStart);
    if (isPlain) {
        return run;
    }
    unquoted_.append(run);
    return unquoted_;
}

/// Takes what stands between quotes into `unquoted_` and returns the position behind the last one.
/// An unclosed quote reaches to the end of the text.
std::size_t CSVScanner::scanQuoted() {
    std::size_t runStart = position_;
    while (true) {
        position_ = text_.find('"', position_);
        if (position_ == std::string_view::npos) {
            position_ = text_.size();
            unquoted_.append(text_, runStart);
            return position_;
        }
        if (!isWholeCharacter(text_, position_)) {
            ++position_;
            continue;
        }
        unquoted_.append(text_, runStart, position_ - runStart);
        ++position_;
        const bool isDoubled = position_ < text_.size() && text_[position_] == '"' &&
                               isWholeCharacter(text_, position_);
        if (!isDoubled) {
            return position_;
        }
        runStart = position_; // the second of the two is part of the text
        ++position_;
    }
}

CSVScanner::Ending CSVScanner::scanEnding() {
    if (position_ == text_.size()) {
        return Ending::text;
    }
    const char letter = text_[position_++];
    if (letter == ',') {
        return Ending::comma;
    }
    if (letter == '\r' && position_ < text_.size() && text_[position_] == '\n') {
        ++position_;
    }
    return Ending::line;
}

} // namespace oakfen
