#pragma once

#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>

#include "OakfenCore/Models/Library.h"

/// How the records look as objects of the document: one table per record, which the encoder writes
/// from, the decoder reads into and checks walk through. A field whose type is optional may be
/// missing.
namespace oakfen {

/// A key of a record's object and the member that it stands for.
template <typename Record, typename Value>
struct Field {
    std::string_view key;
    Value Record::*member;
};
template <typename Record, typename Value>
Field(std::string_view, Value Record::*) -> Field<Record, Value>; // not every compiler deduces it

/// A record's fields in the order of their keys, in which they are written.
template <typename Record>
inline constexpr auto fieldsOf = std::tuple<>{};

template <>
inline constexpr auto fieldsOf<Account> = std::tuple{
    Field{"creditLimit", &Account::creditLimit},
    Field{"id", &Account::id},
    Field{"institution", &Account::institution},
    Field{"interestRate", &Account::interestRate},
    Field{"isClosed", &Account::isClosed},
    Field{"lowBalanceAlert", &Account::lowBalanceAlert},
    Field{"name", &Account::name},
    Field{"notes", &Account::notes},
    Field{"openingBalance", &Account::openingBalance},
    Field{"openingDate", &Account::openingDate},
    Field{"type", &Account::type},
};

template <>
inline constexpr auto fieldsOf<Category> = std::tuple{
    Field{"id", &Category::id},
    Field{"isTaxRelated", &Category::isTaxRelated},
    Field{"kind", &Category::kind},
    Field{"name", &Category::name},
    Field{"parentID", &Category::parentID},
};

template <>
inline constexpr auto fieldsOf<Split> = std::tuple{
    Field{"amount", &Split::amount},
    Field{"categoryID", &Split::categoryID},
    Field{"id", &Split::id},
    Field{"memo", &Split::memo},
};

template <>
inline constexpr auto fieldsOf<Transaction> = std::tuple{
    Field{"accountID", &Transaction::accountID},
    Field{"amount", &Transaction::amount},
    Field{"categoryID", &Transaction::categoryID},
    Field{"checkNumber", &Transaction::checkNumber},
    Field{"cleared", &Transaction::cleared},
    Field{"date", &Transaction::date},
    Field{"id", &Transaction::id},
    Field{"importID", &Transaction::importID},
    Field{"memo", &Transaction::memo},
    Field{"payee", &Transaction::payee},
    Field{"splits", &Transaction::splits},
    Field{"tags", &Transaction::tags},
    Field{"transferAccountID", &Transaction::transferAccountID},
    Field{"transferID", &Transaction::transferID},
};

template <>
inline constexpr auto fieldsOf<PricePoint> = std::tuple{
    Field{"date", &PricePoint::date},
    Field{"price", &PricePoint::price},
};

template <>
inline constexpr auto fieldsOf<Security> = std::tuple{
    Field{"id", &Security::id},
    Field{"kind", &Security::kind},
    Field{"name", &Security::name},
    Field{"price", &Security::price},
    Field{"priceHistory", &Security::priceHistory},
    Field{"symbol", &Security::symbol},
};

template <>
inline constexpr auto fieldsOf<InvestmentTransaction> = std::tuple{
    Field{"accountID", &InvestmentTransaction::accountID},
    Field{"action", &InvestmentTransaction::action},
    Field{"amount", &InvestmentTransaction::amount},
    Field{"commission", &InvestmentTransaction::commission},
    Field{"date", &InvestmentTransaction::date},
    Field{"id", &InvestmentTransaction::id},
    Field{"memo", &InvestmentTransaction::memo},
    Field{"price", &InvestmentTransaction::price},
    Field{"securityID", &InvestmentTransaction::securityID},
    Field{"shares", &InvestmentTransaction::shares},
};

template <>
inline constexpr auto fieldsOf<ScheduledTransaction> = std::tuple{
    Field{"accountID", &ScheduledTransaction::accountID},
    Field{"amount", &ScheduledTransaction::amount},
    Field{"autoEnter", &ScheduledTransaction::autoEnter},
    Field{"categoryID", &ScheduledTransaction::categoryID},
    Field{"endDate", &ScheduledTransaction::endDate},
    Field{"frequency", &ScheduledTransaction::frequency},
    Field{"id", &ScheduledTransaction::id},
    Field{"memo", &ScheduledTransaction::memo},
    Field{"nextDate", &ScheduledTransaction::nextDate},
    Field{"payee", &ScheduledTransaction::payee},
    Field{"transferAccountID", &ScheduledTransaction::transferAccountID},
};

template <>
inline constexpr auto fieldsOf<SavingsGoal> = std::tuple{
    Field{"id", &SavingsGoal::id},         Field{"name", &SavingsGoal::name},
    Field{"saved", &SavingsGoal::saved},   Field{"symbolName", &SavingsGoal::symbolName},
    Field{"target", &SavingsGoal::target}, Field{"targetDate", &SavingsGoal::targetDate},
};

template <>
inline constexpr auto fieldsOf<Library> = std::tuple{
    Field{"accounts", &Library::accounts},
    Field{"budget", &Library::budget},
    Field{"categories", &Library::categories},
    Field{"currencyCode", &Library::currencyCode},
    Field{"goals", &Library::goals},
    Field{"investmentTransactions", &Library::investmentTransactions},
    Field{"scheduled", &Library::scheduled},
    Field{"securities", &Library::securities},
    Field{"transactions", &Library::transactions},
    Field{"version", &Library::version},
};

/// A type that the document holds as an object.
template <typename T>
concept RecordType = (std::tuple_size_v<std::remove_const_t<decltype(fieldsOf<T>)>> > 0);

/// How many members of a record its table names.
template <RecordType Record>
inline constexpr std::size_t fieldCount =
    std::tuple_size_v<std::remove_const_t<decltype(fieldsOf<Record>)>>;

/// Stands for a value of any type where none is made.
struct AnyValue {
    template <typename Value>
    operator Value() const; // as implicit as an initializer
};

/// How many members a record has: with one value more it can't be made.
template <typename Record, typename... Values>
consteval std::size_t memberCount() {
    if constexpr (requires { Record{Values{}..., AnyValue{}}; }) {
        return memberCount<Record, Values..., AnyValue>();
    } else {
        return sizeof...(Values);
    }
}

/// Whether the keys ascend, so that the same record always gives the same bytes.
template <RecordType Record>
consteval bool keysAscend() {
    return std::apply(
        [](const auto&... fields) {
            std::string_view last;
            return ((last < fields.key && (last = fields.key, true)) && ...);
        },
        fieldsOf<Record>);
}

/// Whether each member of the record has a key, in its place.
template <RecordType Record>
inline constexpr bool isWhole = fieldCount<Record> == memberCount<Record>() && keysAscend<Record>();

static_assert(isWhole<Account> && isWhole<Category> && isWhole<Split> && isWhole<Transaction> &&
              isWhole<PricePoint> && isWhole<Security> && isWhole<InvestmentTransaction> &&
              isWhole<ScheduledTransaction> && isWhole<SavingsGoal> && isWhole<Library>);

} // namespace oakfen
