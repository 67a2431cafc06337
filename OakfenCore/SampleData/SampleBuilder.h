#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// What the parts of the sample household share: the document under construction, the accounts by
/// purpose, and the few verbs with which its history is told. Nothing is entered after `now`.
class SampleBuilder {
public:
    /// Months of history before the present one.
    static constexpr int monthsOfHistory = 24;

    SampleBuilder(Library library, Date now, const Calendar& calendar);

    /// SplitMix64's next number as a fraction from -1 to 1.
    [[nodiscard]] double draw();
    /// The amount give or take that fraction of it, to the cent.
    [[nodiscard]] Decimal around(double amount, double spread);

    /// The id of the category at that path ("Home: Property Tax"); none for an unknown one.
    [[nodiscard]] std::optional<UUID> cat(std::string_view path) const;
    /// The start of the month so many months before the present one.
    [[nodiscard]] Date month(int monthsAgo) const;
    /// A day of the month that begins at `month`.
    [[nodiscard]] Date on(Date month, int day) const;
    [[nodiscard]] Date day(Date from, int days) const { return calendar_.addingDays(from, days); }
    /// The next date after `now` that is this day of a month.
    [[nodiscard]] Date next(int dayOfMonth) const;
    /// Reconciled after 35 days, cleared from the fourth on.
    [[nodiscard]] ClearedState status(Date date) const;

    UUID account(Account account);
    /// One ordinary entry; none where the date is after `now`.
    void add(const UUID& account, Date date, std::string_view payee, const Decimal& amount,
             std::string_view category, std::string_view memo = {});
    /// One entry whose amount is the sum of its lines.
    void addSplit(const UUID& account, Date date, std::string_view payee,
                  std::vector<Split> splits);
    /// Both legs of a transfer; the amount is what arrives.
    void transfer(const UUID& from, const UUID& to, Date date, std::string_view payee,
                  const Decimal& amount);
    [[nodiscard]] Split split(std::string_view category, const Decimal& amount,
                              std::string_view memo = {}) const;

    /// A security whose price walks in weekly steps from the first month to `now`.
    UUID security(std::string_view symbol, std::string_view name, SecurityKind kind, double start,
                  double drift, double vol);

    [[nodiscard]] Date now() const { return now_; }
    [[nodiscard]] const Calendar& calendar() const { return calendar_; }
    Library& library() { return library_; }

private:
    Library library_;
    Date now_;
    Calendar calendar_;
    std::map<std::string, UUID, std::less<>> categories_;
    std::uint64_t state_ = 20261010;
};

/// The accounts of the sample household.
struct SampleAccounts {
    UUID chequing;
    UUID savings;
    UUID visa;
    UUID tfsa;
    UUID mortgage;
    UUID carLoan;
};

/// Pay, bills, shopping and transfers, month by month.
void tellSampleHistory(SampleBuilder& builder, const SampleAccounts& accounts);

/// The securities and what was bought and sold of them.
void fillSamplePortfolio(SampleBuilder& builder, const UUID& account);

/// The budget, the reminders and the goals.
void makeSamplePlans(SampleBuilder& builder, const SampleAccounts& accounts);

/// The double as money: to the cent.
[[nodiscard]] Decimal cents(double amount);

} // namespace oakfen
