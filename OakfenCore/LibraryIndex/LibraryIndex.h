#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "OakfenCore/LibraryIndex/Holdings.h"
#include "OakfenCore/LibraryIndex/RegisterRow.h"
#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// One line of money by category: an entry that is not a transfer, or one split of it.
struct CategoryLine {
    UUID transactionID;
    UUID accountID;
    Date date;
    std::string payee;
    std::optional<UUID> categoryID = {};
    Decimal amount;

    friend bool operator==(const CategoryLine&, const CategoryLine&) = default;
};

/// The same line where it stands in the document, for those that add many up: nothing is copied.
struct LedgerLine {
    const Transaction& entry;
    const std::optional<UUID>& categoryID;
    const Decimal& amount;
    bool isIncome = false;
};

class AccountLedger;
class PeriodSums;

/// Every derived figure of one document: lookup tables, balances, names, rows. Made whole from a
/// `Library`, never patched; safe to read from any thread. Queries never fail: an unknown id gives
/// zero, an empty list or a fallback text.
class LibraryIndex {
public:
    /// `now` sets the cut-off (the end of its day) between current and future entries.
    LibraryIndex(Library library, Date now, const Calendar& calendar);
    ~LibraryIndex();
    LibraryIndex(const LibraryIndex&) = delete;
    LibraryIndex& operator=(const LibraryIndex&) = delete;

    /// The document that the index describes.
    [[nodiscard]] const Library& library() const;
    [[nodiscard]] Date now() const;

    // Lookup; null when the id names nothing. Of two records with one id the first counts, but of
    // two transactions the last.
    [[nodiscard]] const Account* account(const UUID& id) const;
    [[nodiscard]] const Category* category(const UUID& id) const;
    [[nodiscard]] const Security* security(const UUID& id) const;
    [[nodiscard]] const Transaction* transaction(const UUID& id) const;

    /// The account's entries in ledger order: by instant, then deposits first, then by payee, then
    /// as in the document. Entries of an account that does not exist come in document order.
    [[nodiscard]] std::span<const Transaction* const> transactions(const UUID& accountID) const;

    /// The account's cash just after that entry; zero for an unknown one.
    [[nodiscard]] Decimal runningBalance(const UUID& transactionID) const;

    // Balances of an account, all from its opening balance; zero for an unknown one.
    /// All entries and all investment cash, future ones included.
    [[nodiscard]] Decimal endingCash(const UUID& accountID) const;
    /// Entries and investment cash up to the end of today.
    [[nodiscard]] Decimal currentCash(const UUID& accountID) const;
    /// Cleared and reconciled entries of any date, and all investment cash.
    [[nodiscard]] Decimal clearedBalance(const UUID& accountID) const;
    /// Reconciled entries of any date, without investment cash.
    [[nodiscard]] Decimal reconciledBalance(const UUID& accountID) const;
    /// What the account holds, future rows included, the most valuable first.
    [[nodiscard]] const std::vector<Holding>& holdings(const UUID& accountID) const;
    /// What all accounts hold together, closed ones included; without what is sold out.
    [[nodiscard]] std::vector<Holding> allHoldings() const;
    /// The value of the account's holdings.
    [[nodiscard]] Decimal marketValue(const UUID& accountID) const;
    /// `currentCash` and `marketValue`.
    [[nodiscard]] Decimal balance(const UUID& accountID) const;
    /// `endingCash` and `marketValue`.
    [[nodiscard]] Decimal endingBalance(const UUID& accountID) const;
    /// The balance as it stood at a past instant; zero before the account's opening date.
    [[nodiscard]] Decimal balance(const Account& account, Date asOf) const;
    /// That balance at each of the instants, which ascend, in one walk through the account.
    [[nodiscard]] std::vector<Decimal> balances(const Account& account,
                                                std::span<const Date> instants) const;

    // All open accounts together.
    [[nodiscard]] Decimal netWorth() const;
    [[nodiscard]] Decimal totalAssets() const;
    /// Zero or negative.
    [[nodiscard]] Decimal totalLiabilities() const;

    /// Accounts that are not closed, in the document's order.
    [[nodiscard]] std::vector<const Account*> openAccounts() const;
    /// The accounts of a group by name, then id.
    [[nodiscard]] std::vector<const Account*> accounts(AccountGroup group,
                                                       bool includeClosed) const;

    /// The latest entry of that payee, without regard to case and to blanks around it; or null.
    [[nodiscard]] const Transaction* memorized(std::string_view payee) const;
    /// Every payee once, as its latest entry spells it, in the locale's collation order.
    [[nodiscard]] const std::vector<std::string>& payees() const;
    /// Every tag in use, in plain order.
    [[nodiscard]] const std::vector<std::string>& tags() const;

    // The category tree.
    /// The full path ("Food: Groceries"), of at most nine names; null for an unknown id.
    [[nodiscard]] const std::string* categoryPath(const UUID& id) const;
    /// The full path; "Uncategorized" for none or an unknown one.
    [[nodiscard]] std::string categoryName(const std::optional<UUID>& id) const;
    /// The text of the register's category column.
    [[nodiscard]] std::string categoryDescription(const Transaction& transaction) const;
    /// All categories of the kind by full path, then id, so parents precede their children.
    [[nodiscard]] std::vector<const Category*> sortedCategories(CategoryKind kind) const;
    /// By name, then id.
    [[nodiscard]] std::vector<const Category*> children(const UUID& id) const;
    /// Categories of the kind without a parent, by name, then id.
    [[nodiscard]] std::vector<const Category*> topLevelCategories(CategoryKind kind) const;
    /// The id of the category's root, at most eight steps up.
    [[nodiscard]] UUID topLevelID(const UUID& id) const;

    /// The lines of the interval (both ends included), in document order, without transfers.
    [[nodiscard]] std::vector<CategoryLine> categoryLines(const DateInterval& interval) const;
    /// By the category's kind; without a category, by the sign.
    [[nodiscard]] bool isIncomeLine(const CategoryLine& line) const;
    /// Calls `take` with the same lines, looking at no entry outside of the interval. They come
    /// account by account; but in document order if `sumsAreExact` doesn't hold.
    void forEachLine(const DateInterval& interval,
                     const std::function<void(const LedgerLine&)>& take) const;
    /// Whether the sum of any lines is the same in whatever order they are added. Only amounts of
    /// an absurd size or with many decimals make it depend on the order, by rounding.
    [[nodiscard]] bool sumsAreExact() const;
    /// The sums of the interval's lines, from which all totals over it come. Made at the first
    /// question about the interval, in one pass. Valid as long as the index.
    [[nodiscard]] std::shared_ptr<const PeriodSums> periodSums(const DateInterval& interval) const;
    /// From the first entry to the last; none without entries.
    [[nodiscard]] std::optional<DateInterval> datesOfEntries() const;
    /// Entries that are no transfer, have no splits and no category.
    [[nodiscard]] int uncategorizedCount() const;

    /// The account's register in ledger order, oldest first.
    [[nodiscard]] std::vector<RegisterRow> registerRows(const UUID& accountID) const;
    /// Turns the rows that an earlier index gave for the account into those of this one. What both
    /// documents share stays as it is, so that few rows are made after an edit.
    void updateRegisterRows(std::vector<RegisterRow>& rows, const UUID& accountID,
                            const LibraryIndex& earlier) const;

private:
    struct Tables;

    /// Adds the cash and the holdings of investment rows to the cash of other entries.
    void addInvestments(std::vector<Decimal>& balances, const AccountLedger& ledger,
                        std::span<const Date> instants) const;
    [[nodiscard]] bool isIncome(const std::optional<UUID>& categoryID, const Decimal& amount) const;
    /// All of a row but its balance.
    [[nodiscard]] RegisterRow registerRow(const Transaction& entry) const;
    /// Turns the rows of some entries into those of others, but for the balances; which row is the
    /// first that is new or has another before it.
    std::size_t renewRows(std::vector<RegisterRow>& rows,
                          std::span<const Transaction* const> before,
                          std::span<const Transaction* const> after) const;
    void fillBalances(std::vector<RegisterRow>& rows, const UUID& accountID) const;

    std::unique_ptr<const Tables> tables_;
};

} // namespace oakfen
