#include "OakfenCore/SampleData/SampleBuilder.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace oakfen {

Decimal cents(double amount) {
    // Through the text of two decimals, so that the amount holds exactly those. The text has a
    // point in every locale.
    char text[64];
    const std::to_chars_result end =
        std::to_chars(text, text + sizeof text, amount, std::chars_format::fixed, 2);
    return Decimal::parse(std::string_view(text, end.ptr)).value();
}

SampleBuilder::SampleBuilder(Library library, Date now, const Calendar& calendar)
    : library_(std::move(library)), now_(now), calendar_(calendar) {
    std::map<UUID, std::string> names;
    for (const Category& category : library_.categories) {
        names[category.id] = category.name;
        const std::string path =
            category.parentID ? names[*category.parentID] + ": " + category.name : category.name;
        categories_.emplace(path, category.id);
    }
}

double SampleBuilder::draw() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    mixed ^= mixed >> 31U;
    const double fraction = static_cast<double>(mixed >> 11U) * 0x1.0p-53;
    return fraction * 2 - 1;
}

Decimal SampleBuilder::around(double amount, double spread) {
    return cents(amount * (1 + spread * draw()));
}

std::optional<UUID> SampleBuilder::cat(std::string_view path) const {
    const auto found = categories_.find(path);
    return found == categories_.end() ? std::nullopt : std::optional(found->second);
}

Date SampleBuilder::month(int monthsAgo) const {
    return calendar_.addingMonths(calendar_.startOfMonth(now_), -monthsAgo);
}

Date SampleBuilder::on(Date month, int day) const {
    return calendar_.addingDays(month, day - 1);
}

Date SampleBuilder::next(int dayOfMonth) const {
    const Date thisMonth = on(month(0), dayOfMonth);
    return thisMonth > now_ ? thisMonth : calendar_.addingMonths(thisMonth, 1);
}

ClearedState SampleBuilder::status(Date date) const {
    const int age = calendar_.wholeDays(date, now_);
    if (age > 35) {
        return ClearedState::reconciled;
    }
    return age >= 4 ? ClearedState::cleared : ClearedState::uncleared;
}

UUID SampleBuilder::account(Account account) {
    account.id = UUID::random();
    account.openingDate = month(monthsOfHistory);
    const UUID id = account.id;
    library_.accounts.push_back(std::move(account));
    return id;
}

void SampleBuilder::add(const UUID& account, Date date, std::string_view payee,
                        const Decimal& amount, std::string_view category, std::string_view memo) {
    if (date > now_) {
        return;
    }
    library_.transactions.push_back({.id = UUID::random(),
                                     .accountID = account,
                                     .date = date,
                                     .payee = std::string(payee),
                                     .amount = amount,
                                     .categoryID = cat(category),
                                     .memo = std::string(memo),
                                     .cleared = status(date)});
}

void SampleBuilder::addSplit(const UUID& account, Date date, std::string_view payee,
                             std::vector<Split> splits) {
    if (date > now_) {
        return;
    }
    const Decimal total = sum(splits, &Split::amount);
    library_.transactions.push_back({.id = UUID::random(),
                                     .accountID = account,
                                     .date = date,
                                     .payee = std::string(payee),
                                     .amount = total,
                                     .splits = std::move(splits),
                                     .cleared = status(date)});
}

void SampleBuilder::transfer(const UUID& from, const UUID& to, Date date, std::string_view payee,
                             const Decimal& amount) {
    if (date > now_ || amount.isZero()) {
        return;
    }
    const UUID leaving = UUID::random();
    const UUID arriving = UUID::random();
    library_.transactions.push_back({.id = leaving,
                                     .accountID = from,
                                     .date = date,
                                     .payee = std::string(payee),
                                     .amount = -amount,
                                     .transferAccountID = to,
                                     .transferID = arriving,
                                     .cleared = status(date)});
    library_.transactions.push_back({.id = arriving,
                                     .accountID = to,
                                     .date = date,
                                     .payee = std::string(payee),
                                     .amount = amount,
                                     .transferAccountID = from,
                                     .transferID = leaving,
                                     .cleared = status(date)});
}

Split SampleBuilder::split(std::string_view category, const Decimal& amount,
                           std::string_view memo) const {
    return {.id = UUID::random(),
            .categoryID = cat(category),
            .memo = std::string(memo),
            .amount = amount};
}

UUID SampleBuilder::security(std::string_view symbol, std::string_view name, SecurityKind kind,
                             double start, double drift, double vol) {
    Security security{.id = UUID::random(),
                      .symbol = std::string(symbol),
                      .name = std::string(name),
                      .kind = kind};
    double price = start;
    for (Date date = month(monthsOfHistory); date <= now_; date = day(date, 7)) {
        if (!security.priceHistory.empty()) {
            price = std::max(1.0, price * (1 + drift + vol * draw()));
        }
        security.priceHistory.push_back({date, cents(price)});
    }
    security.price = security.priceHistory.back().price;
    const UUID id = security.id;
    library_.securities.push_back(std::move(security));
    return id;
}

} // namespace oakfen
