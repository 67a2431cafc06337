#include "Fuzz/LedgerEdits.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "OakfenCore/Importers/Merging.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/LibraryOperations/Categories.h"
#include "OakfenCore/LibraryOperations/Reconciliation.h"
#include "OakfenCore/LibraryOperations/SavingsGoals.h"
#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"
#include "OakfenCore/LibraryOperations/Securities.h"
#include "OakfenCore/LibraryOperations/Transactions.h"

namespace oakfen::fuzz {

namespace {

constexpr double secondsPerDay = 86'400;
constexpr Date now{796'000'000};

/// Makes the records and arguments of one edit out of its bytes.
class Edit {
public:
    Edit(Library& library, ByteReader& bytes) : library_(library), bytes_(bytes) {}

    void apply() {
        static constexpr std::array edits{
            &Edit::putAccount,  &Edit::dropAccount,   &Edit::putCategory,  &Edit::dropCategory,
            &Edit::addEntry,    &Edit::addEntry,      &Edit::changeEntry,  &Edit::changeEntry,
            &Edit::dropEntries, &Edit::markEntries,   &Edit::fileEntries,  &Edit::finishReconciling,
            &Edit::putReminder, &Edit::enterReminder, &Edit::skipReminder, &Edit::enterDueOnes,
            &Edit::putSecurity, &Edit::putPrice,      &Edit::dropSecurity, &Edit::putRow,
            &Edit::dropRow,     &Edit::putGoal,       &Edit::setBudget,    &Edit::importLines,
        };
        (this->*edits[bytes_.below(edits.size())])();
    }

private:
    enum class Kind : std::uint8_t { account, category, security, reminder, goal, row };

    UUID id(Kind kind) {
        UUID id;
        id.bytes[0] = static_cast<std::uint8_t>(kind);
        id.bytes[15] = static_cast<std::uint8_t>(bytes_.below(5));
        return id;
    }
    std::optional<UUID> maybe(Kind kind) {
        return bytes_.flag() ? std::optional(id(kind)) : std::nullopt;
    }

    std::string text() {
        static constexpr std::array<const char*, 6> texts{"",    "Acme",      "acme ",
                                                          "Zoë", "\"a/b\"\n", "漢字"};
        return texts[bytes_.below(texts.size())];
    }

    Decimal amount() {
        const auto units = static_cast<std::int64_t>(bytes_.next()) - 128;
        const std::size_t size = bytes_.below(16);
        // Few enough digits for any sum of them to be exact.
        return size < 12 ? Decimal::cents(units * 25)
                         : Decimal::make(units, static_cast<int>(size - 12) * 6 - 9);
    }

    Date date() { return now.adding((bytes_.next() - 192.0) * secondsPerDay / 2); }

    template <typename Enumeration>
    Enumeration any() {
        return allCases<Enumeration>[bytes_.below(allCases<Enumeration>.size())];
    }

    std::optional<std::size_t> position() {
        const std::size_t count = library_.transactions.size();
        const std::size_t choice = bytes_.next();
        return count == 0 ? std::nullopt : std::optional(choice % count);
    }

    UUIDSet entryIDs() {
        UUIDSet ids;
        for (std::size_t count = bytes_.below(4); count > 0; --count) {
            if (const auto index = position()) {
                ids.insert(library_.transactions[*index].id);
            }
        }
        return ids;
    }

    void putAccount() {
        Account account;
        account.id = id(Kind::account);
        account.name = text();
        account.type = any<AccountType>();
        account.openingBalance = amount();
        account.openingDate = date();
        account.isClosed = bytes_.flag();
        upsert(library_, account);
    }
    void dropAccount() { deleteAccount(library_, id(Kind::account)); }

    void putCategory() {
        Category category;
        category.id = id(Kind::category);
        category.name = text();
        category.kind = any<CategoryKind>();
        category.parentID = maybe(Kind::category);
        upsert(library_, category);
    }
    void dropCategory() { deleteCategory(library_, id(Kind::category)); }

    /// What an editor lets a person choose of an entry.
    void fill(Transaction& entry) {
        entry.accountID = id(Kind::account);
        entry.date = date();
        entry.payee = text();
        entry.amount = amount();
        entry.categoryID = maybe(Kind::category);
        entry.transferAccountID = maybe(Kind::account);
        entry.memo = text();
        entry.cleared = any<ClearedState>();
        entry.splits.clear();
        for (std::size_t count = bytes_.below(6); count > 3; --count) {
            entry.splits.push_back({UUID::random(), maybe(Kind::category), text(), amount()});
        }
        if (bytes_.flag()) {
            entry.tags = {text(), text()};
        }
    }
    void addEntry() {
        Transaction entry;
        entry.id = UUID::random();
        fill(entry);
        upsert(library_, entry);
    }
    void changeEntry() {
        if (const auto index = position()) {
            Transaction entry = library_.transactions[*index];
            fill(entry);
            if (bytes_.flag()) {
                entry.transferID.reset(); // as an editor that doesn't know the other leg
            }
            upsert(library_, entry);
        }
    }
    void dropEntries() { deleteTransactions(library_, entryIDs()); }
    void markEntries() { setCleared(library_, any<ClearedState>(), entryIDs()); }
    void fileEntries() { setCategory(library_, maybe(Kind::category), entryIDs()); }
    void finishReconciling() {
        const UUID accountID = id(Kind::account);
        const UUIDSet ids = entryIDs();
        const Date statementDate = date();
        reconcile(library_, accountID, ids, statementDate, bytes_.flag() ? amount() : Decimal());
    }

    void putReminder() {
        ScheduledTransaction reminder;
        reminder.id = id(Kind::reminder);
        reminder.payee = text();
        reminder.accountID = id(Kind::account);
        reminder.amount = amount();
        reminder.categoryID = maybe(Kind::category);
        reminder.transferAccountID = maybe(Kind::account);
        reminder.frequency = any<Frequency>();
        reminder.nextDate = date();
        reminder.endDate = bytes_.flag() ? std::optional(date()) : std::nullopt;
        reminder.autoEnter = bytes_.flag();
        upsert(library_, reminder);
    }
    void enterReminder() {
        const UUID reminderID = id(Kind::reminder);
        const auto entered = bytes_.flag() ? std::optional(amount()) : std::nullopt;
        const auto on = bytes_.flag() ? std::optional(date()) : std::nullopt;
        enterScheduled(library_, reminderID, entered, on, Calendar::utc());
    }
    void skipReminder() { skipScheduled(library_, id(Kind::reminder), Calendar::utc()); }
    void enterDueOnes() { processAutoEnter(library_, date(), Calendar::utc()); }

    void putSecurity() {
        Security security;
        security.id = id(Kind::security);
        security.name = text();
        security.price = amount().magnitude();
        upsert(library_, security);
    }
    void putPrice() {
        const UUID securityID = id(Kind::security);
        const Decimal price = amount();
        updatePrice(library_, securityID, price, date(), Calendar::utc());
    }
    void dropSecurity() { deleteSecurity(library_, id(Kind::security)); }

    void putRow() {
        InvestmentTransaction row;
        row.id = id(Kind::row);
        row.accountID = id(Kind::account);
        row.securityID = maybe(Kind::security);
        row.date = date();
        row.action = any<InvestmentAction>();
        row.shares = amount().magnitude();
        row.price = Decimal(static_cast<std::int64_t>(bytes_.next()));
        row.commission = Decimal::cents(static_cast<std::int64_t>(bytes_.next()));
        row.amount = amount().magnitude();
        upsert(library_, row);
    }
    void dropRow() { deleteInvestmentTransactions(library_, {id(Kind::row), id(Kind::row)}); }

    void putGoal() {
        SavingsGoal goal;
        goal.id = id(Kind::goal);
        goal.name = text();
        goal.target = amount();
        goal.saved = amount();
        goal.targetDate = bytes_.flag() ? std::optional(date()) : std::nullopt;
        upsert(library_, goal);
    }
    void setBudget() {
        const UUID categoryID = id(Kind::category);
        if (bytes_.flag()) {
            library_.budget[categoryID] = amount();
        } else {
            library_.budget.erase(categoryID);
        }
    }

    void importLines() {
        std::vector<ImportedTransaction> lines;
        for (std::size_t count = bytes_.below(4); count > 0; --count) {
            ImportedTransaction line;
            line.id = UUID::random();
            line.date = date();
            line.payee = text();
            line.amount = amount();
            line.categoryName = bytes_.flag() ? std::optional(text()) : std::nullopt;
            line.importID = bytes_.flag() ? std::optional(text()) : std::nullopt;
            lines.push_back(line);
        }
        importTransactions(library_, lines, id(Kind::account), now, Calendar::utc());
    }

    Library& library_;
    ByteReader& bytes_;
};

} // namespace

void applyEdit(Library& library, ByteReader& bytes) {
    Edit(library, bytes).apply();
}

} // namespace oakfen::fuzz
