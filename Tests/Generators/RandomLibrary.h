#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "OakfenCore/Models/Library.h"

/// Random documents for tests that hold for every document. The same seed gives the same one.
namespace oakfen::testing {

/// Makes sound documents: references name records, transfers have both legs, split entries have the
/// sum of their lines. Texts, amounts and dates are meant to be awkward.
class RandomLibrary {
public:
    enum class Amounts {
        awkward,    ///< sometimes of many digits
        wholeCents, ///< all money and prices; shares are whole, so that their values are cents too
    };

    explicit RandomLibrary(std::uint64_t seed, Amounts amounts = Amounts::awkward)
        : engine_(seed), amounts_(amounts) {}

    /// A document with at least that many entries: one more when the last is a transfer.
    [[nodiscard]] Library make(std::size_t transactionCount) {
        library_ = Library{.currencyCode = "CAD"};
        accountIDs_.clear();
        categoryIDs_.clear();
        securityIDs_.clear();
        addAccounts();
        addCategories();
        addSecurities();
        while (library_.transactions.size() < transactionCount) {
            addEntry();
        }
        addInvestmentRows(transactionCount / 10);
        addReminders();
        addGoals();
        for (const UUID& id : categoryIDs_) {
            if (chance(3)) {
                library_.budget[id] = amount().magnitude();
            }
        }
        return std::exchange(library_, Library{});
    }

    /// A number from 0 to `bound` - 1.
    std::size_t below(std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(engine_);
    }
    /// True once in so many calls.
    bool chance(std::size_t oneIn) { return below(oneIn) == 0; }

    UUID id() {
        UUID result;
        for (std::size_t half = 0; half < 2; ++half) {
            const std::uint64_t bits = engine_();
            std::memcpy(result.bytes.data() + half * sizeof bits, &bits, sizeof bits);
        }
        return result;
    }

    /// Mostly everyday money; sometimes many digits, where they are wanted.
    Decimal amount() {
        const auto cents = static_cast<std::int64_t>(below(2'000'001)) - 1'000'000;
        if (amounts_ == Amounts::awkward && chance(20)) {
            const auto digits = static_cast<std::int64_t>(engine_() >> 1U);
            return Decimal::make(Int128{digits} * (chance(2) ? 1 : -1'000'003),
                                 static_cast<int>(below(40)) - 30);
        }
        return Decimal::cents(cents);
    }

    /// A whole second, mostly within the last years; sometimes far away.
    Date date() {
        constexpr double secondsPerDay = 86'400;
        constexpr double daysTo2015 = 5'113;
        if (chance(200)) {
            constexpr double daysInCenturies = 10'000;
            return Date{(static_cast<double>(below(4'000)) - 2'000) * daysInCenturies *
                        secondsPerDay};
        }
        return Date{(daysTo2015 + static_cast<double>(below(4'000))) * secondsPerDay +
                    static_cast<double>(below(2)) * (5 * 3'600)};
    }

    std::string text() {
        static constexpr std::array<std::string_view, 24> pieces{
            "Grocer",
            "Café ",
            "naïve",
            "/",
            "\\",
            "\"",
            "\n",
            "\t",
            "\x01",
            "\x7F",
            std::string_view("\0", 1),
            "漢字",
            "👨‍👩‍👧‍👦",
            "e\u0301",
            " ",
            "\u2028",
            "null",
            "{}[],:",
            "Ωmega",
            "\r\n",
            "’quote’",
            "İstanbul",
            "ß",
            "\u00A0",
        };
        std::string result;
        for (std::size_t count = below(5); count > 0; --count) {
            result += pieces[below(pieces.size())];
        }
        return result;
    }

    template <typename Enumeration>
    Enumeration any() {
        return allCases<Enumeration>[below(allCases<Enumeration>.size())];
    }

private:
    const UUID& anyOf(const std::vector<UUID>& ids) { return ids[below(ids.size())]; }

    template <typename Make>
    auto maybe(Make&& make) -> std::optional<decltype(make())> {
        return chance(2) ? std::optional(make()) : std::nullopt;
    }
    std::optional<UUID> maybeCategory() {
        return maybe([&] { return anyOf(categoryIDs_); });
    }
    std::optional<Decimal> maybeAmount() {
        return maybe([&] { return amount(); });
    }

    Decimal shares() {
        return amounts_ == Amounts::awkward ? amount().magnitude()
                                            : Decimal(static_cast<std::int64_t>(below(1'000)));
    }

    void addAccounts() {
        for (std::size_t count = 2 + below(8); count > 0; --count) {
            accountIDs_.push_back(id());
            library_.accounts.push_back({accountIDs_.back(), text(), any<AccountType>(), text(),
                                         amount(), date(), chance(5), maybeAmount(), maybeAmount(),
                                         maybeAmount(), text()});
        }
    }

    void addCategories() {
        for (std::size_t count = 3 + below(20); count > 0; --count) {
            std::optional<UUID> parentID;
            if (!categoryIDs_.empty() && chance(2)) {
                parentID = anyOf(categoryIDs_);
            }
            categoryIDs_.push_back(id());
            library_.categories.push_back(
                {categoryIDs_.back(), text(), any<CategoryKind>(), parentID, chance(4)});
        }
    }

    void addSecurities() {
        for (std::size_t count = 1 + below(5); count > 0; --count) {
            securityIDs_.push_back(id());
            Security security{securityIDs_.back(),  text(), text(), any<SecurityKind>(),
                              amount().magnitude(), {}};
            for (std::size_t points = below(6); points > 0; --points) {
                security.priceHistory.push_back({date(), amount().magnitude()});
            }
            library_.securities.push_back(std::move(security));
        }
    }

    void addEntry() {
        Transaction entry{.id = id(),
                          .accountID = anyOf(accountIDs_),
                          .date = date(),
                          .payee = text(),
                          .amount = amount(),
                          .memo = text(),
                          .checkNumber = chance(5) ? std::to_string(below(1'000)) : "",
                          .cleared = any<ClearedState>()};
        for (std::size_t tags = chance(4) ? below(4) : 0; tags > 0; --tags) {
            entry.tags.push_back(text());
        }
        if (chance(3)) {
            entry.importID = text();
        }
        if (chance(6)) {
            addTransfer(std::move(entry));
            return;
        }
        if (chance(8)) {
            for (std::size_t lines = 1 + below(4); lines > 0; --lines) {
                entry.splits.push_back({id(), maybeCategory(), text(), amount()});
            }
            entry.amount = sum(entry.splits, &Split::amount);
        } else {
            entry.categoryID = maybeCategory();
        }
        library_.transactions.push_back(std::move(entry));
    }

    void addTransfer(Transaction leg) {
        Transaction twin = leg;
        twin.id = id();
        do {
            twin.accountID = anyOf(accountIDs_);
        } while (twin.accountID == leg.accountID);
        twin.amount = -leg.amount;
        twin.cleared = any<ClearedState>();
        twin.checkNumber.clear();
        twin.tags.clear();
        twin.importID.reset();
        twin.transferAccountID = leg.accountID;
        twin.transferID = leg.id;
        leg.transferAccountID = twin.accountID;
        leg.transferID = twin.id;
        library_.transactions.push_back(std::move(leg));
        library_.transactions.push_back(std::move(twin));
    }

    void addInvestmentRows(std::size_t count) {
        for (; count > 0; --count) {
            library_.investmentTransactions.push_back(
                {id(), anyOf(accountIDs_), maybe([&] { return anyOf(securityIDs_); }), date(),
                 any<InvestmentAction>(), shares(), amount().magnitude(), amount().magnitude(),
                 amount().magnitude(), text()});
        }
    }

    void addReminders() {
        for (std::size_t count = below(6); count > 0; --count) {
            ScheduledTransaction reminder{.id = id(),
                                          .payee = text(),
                                          .accountID = anyOf(accountIDs_),
                                          .amount = amount(),
                                          .memo = text(),
                                          .frequency = any<Frequency>(),
                                          .nextDate = date(),
                                          .endDate = maybe([&] { return date(); }),
                                          .autoEnter = chance(2)};
            if (chance(3)) {
                reminder.transferAccountID = anyOf(accountIDs_);
            } else {
                reminder.categoryID = maybeCategory();
            }
            library_.scheduled.push_back(std::move(reminder));
        }
    }

    void addGoals() {
        for (std::size_t count = below(4); count > 0; --count) {
            library_.goals.push_back({id(), text(), text(), amount().magnitude(),
                                      amount().magnitude(), maybe([&] { return date(); })});
        }
    }

    std::mt19937_64 engine_;
    Amounts amounts_;
    Library library_;
    std::vector<UUID> accountIDs_;
    std::vector<UUID> categoryIDs_;
    std::vector<UUID> securityIDs_;
};

} // namespace oakfen::testing
