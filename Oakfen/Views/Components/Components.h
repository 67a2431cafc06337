#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Panels.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/Support/Time/Calendar.h"

/// What the small building blocks of all screens show, so that money, status and choices read the
/// same everywhere.
namespace oakfen {

/// The colour roles that a screen's content names.
enum class TextTone { primary, secondary, positive, negative, warning, information };

/// An amount as it is shown.
struct MoneyText {
    std::string text;
    TextTone tone = TextTone::primary;

    friend bool operator==(const MoneyText&, const MoneyText&) = default;
};

/// How an amount is set off.
struct MoneyStyle {
    bool colorsNegative = true;
    bool showsPositiveSign = false;
};

/// The amount in its currency; a positive one with a plus on request.
[[nodiscard]] MoneyText moneyText(const Decimal& amount, std::string_view currencyCode,
                                  MoneyStyle style = {});

/// A figure beneath its caption.
struct Metric {
    /// In capitals.
    std::string caption;
    std::string figure;
    TextTone tint = TextTone::primary;
    bool isLarge = false;
    /// For screen readers, which may spell capitals out.
    std::string accessibilityText;

    friend bool operator==(const Metric&, const Metric&) = default;
};

/// The title in capitals above the amount, and spoken as it stands.
[[nodiscard]] Metric metric(std::string_view title, const Decimal& amount,
                            std::string_view currencyCode, TextTone tint = TextTone::primary,
                            bool isLarge = false);

/// The mark of an entry's state.
struct ClearedBadge {
    std::string_view symbolName;
    TextTone tone = TextTone::secondary;
    std::string_view tooltip;

    friend bool operator==(const ClearedBadge&, const ClearedBadge&) = default;
};

/// An empty circle, one with a tick, or a full one.
[[nodiscard]] ClearedBadge clearedBadge(ClearedState state) noexcept;

/// The share in whole percent, cut towards zero; none when it is not a number or too large.
[[nodiscard]] std::optional<std::int64_t> wholePercent(double fraction);

/// A bar that fills as a budget is used up.
struct BudgetBar {
    /// From 0 to 1.
    double fill = 0;
    TextTone tone = TextTone::positive;
    /// Empty when the share is too large to be told.
    std::string accessibilityText;

    friend bool operator==(const BudgetBar&, const BudgetBar&) = default;
};

/// Green below 0.85, orange from there, red from 1 on; never fuller than full.
[[nodiscard]] BudgetBar budgetBar(double fraction);

/// How far a day is from today: "Tomorrow", "3 days overdue", "Mar 5".
[[nodiscard]] std::string relativeDayDescription(Date date, Date now, const Calendar& calendar);

/// One line of a picker's list: a section's header, or something that can be chosen.
struct PickerRow {
    std::string title;
    /// What choosing the line gives; nothing is a choice too ("None").
    std::optional<UUID> id = {};
    bool isHeader = false;

    friend bool operator==(const PickerRow&, const PickerRow&) = default;
};

/// The categories of a kind by their full path.
[[nodiscard]] std::vector<PickerRow> categoryChoices(const LibraryIndex& index, CategoryKind kind);

/// "Uncategorized", then the categories of each kind by their full path.
[[nodiscard]] std::vector<PickerRow> categoryPickerRows(const LibraryIndex& index);

/// Which accounts a picker lists.
struct AccountPickerOptions {
    std::optional<UUID> excluding = {};
    /// Begins with "None".
    bool includeNone = false;
    bool investmentOnly = false;
};

/// The open accounts by group; a group without any has no header.
[[nodiscard]] std::vector<PickerRow> accountPickerRows(const LibraryIndex& index,
                                                       const AccountPickerOptions& options = {});

/// The rows with the choice at their end, unless it is among them already: what a record says is
/// shown and kept, even where the list would leave it out.
[[nodiscard]] std::vector<PickerRow> keepingChoice(std::vector<PickerRow> rows, PickerRow choice);

/// The title of a group's section in a picker.
[[nodiscard]] std::string_view pickerTitle(AccountGroup group) noexcept;

/// What a sheet asks before its destructive button acts; `warning` stands before the reminder that
/// the step can be undone.
[[nodiscard]] ConfirmationRequest destructiveConfirmation(std::string_view destructiveTitle,
                                                          std::string_view warning = {});

/// The text on one line: each line end becomes a blank.
[[nodiscard]] std::string singleLine(std::string_view text);

} // namespace oakfen
