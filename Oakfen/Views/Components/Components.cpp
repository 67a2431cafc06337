#include "Oakfen/Views/Components/Components.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

MoneyText moneyText(const Decimal& amount, std::string_view currencyCode, MoneyStyle style) {
    MoneyText money{.text = currencyText(amount, currencyCode)};
    if (style.showsPositiveSign && amount.isPositive()) {
        money.text.insert(0, "+");
    }
    if (style.colorsNegative && amount.isNegative()) {
        money.tone = TextTone::negative;
    }
    return money;
}

Metric metric(std::string_view title, const Decimal& amount, std::string_view currencyCode,
              TextTone tint, bool isLarge) {
    std::string figure = currencyText(amount, currencyCode);
    std::string accessibilityText = std::string(title) + ", " + figure;
    return {.caption = uppercased(title),
            .figure = std::move(figure),
            .tint = tint,
            .isLarge = isLarge,
            .accessibilityText = std::move(accessibilityText)};
}

ClearedBadge clearedBadge(ClearedState state) noexcept {
    switch (state) {
    case ClearedState::uncleared:
        return {"circle", TextTone::secondary, "Uncleared"};
    case ClearedState::cleared:
        return {"checkmark.circle", TextTone::information, "Cleared"};
    case ClearedState::reconciled:
        return {"checkmark.circle.fill", TextTone::positive, "Reconciled"};
    }
    return {};
}

std::optional<std::int64_t> wholePercent(double fraction) {
    // The first double past the 64-bit integers; its negation is the last one inside.
    constexpr double limit = 9223372036854775808.0;
    const double percent = std::trunc(fraction * 100);
    return percent >= -limit && percent < limit ? std::optional(static_cast<std::int64_t>(percent))
                                                : std::nullopt;
}

BudgetBar budgetBar(double fraction) {
    if (std::isnan(fraction)) {
        return {};
    }
    BudgetBar bar{.fill = std::clamp(fraction, 0.0, 1.0)};
    if (fraction >= 1) {
        bar.tone = TextTone::negative;
    } else if (fraction >= 0.85) {
        bar.tone = TextTone::warning;
    }
    if (const auto percent = wholePercent(fraction)) {
        bar.accessibilityText = std::to_string(*percent) + " percent used";
    }
    return bar;
}

std::string relativeDayDescription(Date date, Date now, const Calendar& calendar) {
    const int days = calendar.wholeDays(calendar.startOfDay(now), calendar.startOfDay(date));
    switch (days) {
    case 0:
        return "Today";
    case 1:
        return "Tomorrow";
    case -1:
        return "Yesterday";
    default:
        break;
    }
    if (days < 0) {
        // Wider, since the lowest of all integers has no negation of its own.
        return countText(static_cast<std::size_t>(-std::int64_t{days})) + " days overdue";
    }
    if (days < 7) {
        return "In " + std::to_string(days) + " days";
    }
    return abbreviatedMonthDayText(date, calendar);
}

namespace {

void appendSection(std::vector<PickerRow>& rows, std::string_view title,
                   std::vector<PickerRow> choices) {
    if (choices.empty()) {
        return;
    }
    rows.push_back({.title = std::string(title), .isHeader = true});
    std::ranges::move(choices, std::back_inserter(rows));
}

} // namespace

std::vector<PickerRow> categoryChoices(const LibraryIndex& index, CategoryKind kind) {
    std::vector<PickerRow> choices;
    for (const Category* category : index.sortedCategories(kind)) {
        choices.push_back({.title = index.categoryName(category->id), .id = category->id});
    }
    return choices;
}

std::vector<PickerRow> categoryPickerRows(const LibraryIndex& index) {
    std::vector<PickerRow> rows{{.title = std::string(uncategorizedName)}};
    appendSection(rows, "Expenses", categoryChoices(index, CategoryKind::expense));
    appendSection(rows, "Income", categoryChoices(index, CategoryKind::income));
    return rows;
}

std::string_view pickerTitle(AccountGroup group) noexcept {
    switch (group) {
    case AccountGroup::banking:
        return "Banking";
    case AccountGroup::credit:
        return "Credit";
    case AccountGroup::investing:
        return "Investments";
    case AccountGroup::propertyDebt:
        return "Property & Debt";
    }
    return {};
}

std::vector<PickerRow> accountPickerRows(const LibraryIndex& index,
                                         const AccountPickerOptions& options) {
    std::vector<PickerRow> rows;
    if (options.includeNone) {
        rows.push_back({.title = "None"});
    }
    for (const AccountGroup group : allCases<AccountGroup>) {
        std::vector<PickerRow> choices;
        for (const Account* account : index.accounts(group, false)) {
            if (account->id != options.excluding &&
                (!options.investmentOnly || isInvestment(account->type))) {
                choices.push_back({.title = account->name, .id = account->id});
            }
        }
        appendSection(rows, pickerTitle(group), std::move(choices));
    }
    return rows;
}

std::vector<PickerRow> keepingChoice(std::vector<PickerRow> rows, PickerRow choice) {
    const bool isListed = std::ranges::any_of(
        rows, [&](const PickerRow& row) { return !row.isHeader && row.id == choice.id; });
    if (!isListed) {
        rows.push_back(std::move(choice));
    }
    return rows;
}

ConfirmationRequest destructiveConfirmation(std::string_view destructiveTitle,
                                            std::string_view warning) {
    std::string message(warning);
    if (!message.empty()) {
        message += " ";
    }
    message += "You can undo this with Edit ▸ Undo.";
    return {.title = std::string(destructiveTitle) + "?",
            .message = std::move(message),
            .confirmTitle = std::string(destructiveTitle),
            .isDestructive = true};
}

std::string singleLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] == '\r' && index + 1 < text.size() && text[index + 1] == '\n') {
            continue;
        }
        line += text[index] == '\r' || text[index] == '\n' ? ' ' : text[index];
    }
    return line;
}

} // namespace oakfen
