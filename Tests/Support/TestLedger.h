#pragma once

#include <string>
#include <utility>

#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Time/Calendar.h"

/// Short ways to make records for tests.
namespace oakfen::testing {

/// That local time in UTC; noon when no hour is named.
inline Date day(int year, int month, int dayOfMonth, int hour = 12) {
    return Calendar::utc().date({.year = year, .month = month, .day = dayOfMonth, .hour = hour});
}

inline Decimal amount(std::string_view text) {
    return Decimal::parse(text).value();
}

inline Account makeAccount(std::string name, AccountType type = AccountType::chequing) {
    return {.id = UUID::random(),
            .name = std::move(name),
            .type = type,
            .openingDate = day(2020, 1, 1)};
}

inline Category makeCategory(std::string name, CategoryKind kind = CategoryKind::expense,
                             std::optional<UUID> parentID = {}) {
    return {.id = UUID::random(), .name = std::move(name), .kind = kind, .parentID = parentID};
}

inline Transaction makeTransaction(const UUID& accountID, Date date, std::string payee,
                                   std::string_view amountText) {
    return {.id = UUID::random(),
            .accountID = accountID,
            .date = date,
            .payee = std::move(payee),
            .amount = amount(amountText)};
}

} // namespace oakfen::testing
