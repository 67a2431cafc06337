#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Editor.h"
#include "OakfenCore/LibraryOperations/EntryChanges.h"

namespace oakfen {

/// A value of several entries that are edited together. It is left as each of them has it, until
/// the person gives them all another.
template <typename Value>
class SharedValue {
public:
    SharedValue() = default;
    /// Without a common value, the field begins with `otherwise`.
    explicit SharedValue(std::optional<Value> common, Value otherwise = Value())
        : isCommon_(common.has_value()), first_(common ? std::move(*common) : std::move(otherwise)),
          value_(first_) {}

    /// Whether the entries have one and the same value.
    [[nodiscard]] bool isCommon() const { return isCommon_; }
    /// What is shown: what all of them have, or are to have.
    [[nodiscard]] const Value& value() const { return value_; }
    [[nodiscard]] bool isLeft() const { return isLeft_; }
    /// What all are to have; absent while each keeps its own.
    [[nodiscard]] std::optional<Value> change() const {
        return isLeft_ ? std::nullopt : std::optional(value_);
    }

    void set(Value value) {
        value_ = std::move(value);
        isLeft_ = false;
    }
    /// Leaves it as it is after all, or gives all what is shown.
    void setLeft(bool isLeft) {
        isLeft_ = isLeft;
        if (isLeft) {
            value_ = first_;
        }
    }

private:
    bool isCommon_ = false;
    Value first_ = {};
    Value value_ = {};
    bool isLeft_ = true;
};

/// The sheet that changes several entries at once, in one step.
class SeveralEditor final : public Editor {
public:
    SeveralEditor(AppEnvironment& environment, const ActiveSheet::EditSeveral& sheet);

    // The form.
    SharedValue<std::string> payee;
    SharedValue<std::string> memo;
    /// The tags as they are typed, between commas.
    SharedValue<std::string> tagsText;
    /// A moment of the day; each entry keeps its own time of day.
    SharedValue<Date> day;

    [[nodiscard]] std::string title() const override;
    /// How many entries will be others than now.
    [[nodiscard]] std::string subtitle() const override;
    [[nodiscard]] std::optional<std::string> obstacle() const override;
    void save() override;

private:
    [[nodiscard]] bool isOnDay(Date date, Date other) const;
    /// How many the changes make another.
    [[nodiscard]] std::size_t changedCount() const;
    [[nodiscard]] EntryChanges changes() const;

    AppEnvironment& environment_;
    /// Keeps the entries.
    std::shared_ptr<const LibraryIndex> index_;
    std::vector<const Transaction*> entries_;
};

} // namespace oakfen
