// What a screen shows as a total is the sum of what it shows as its parts, to the cent: for random
// documents, and through whatever a person types into them.
#include <gtest/gtest.h>

#include <string>

#include "Oakfen/Views/Components/AmountEntry.h"
#include "Oakfen/Views/Components/AmountReading.h"
#include "Oakfen/Views/Editors/AccountEditor.h"
#include "Oakfen/Views/Editors/TransactionEditor.h"
#include "Oakfen/Views/Reconcile/ReconcileView.h"
#include "Oakfen/Views/Register/RegisterView.h"
#include "Oakfen/Views/Shell/SidebarView.h"
#include "OakfenCore/Exporters/Exporter.h"
#include "OakfenCore/Support/Text/Text.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/Support/LocaleForTest.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::LocaleForTest;
using testing::RandomLibrary;
using testing::TestEnvironment;

/// The figure in a text that a screen shows.
Decimal figure(std::string_view text) {
    static const NumberPunctuation punctuation{};
    return readAmount(text, punctuation).value.value();
}

/// An amount as far as a screen shows it.
Decimal shown(const Decimal& amount) {
    return figure(moneyText(amount, "CAD").text);
}

class FiguresAgree : public ::testing::Test {
protected:
    void open(std::uint64_t seed) {
        source_ = RandomLibrary(seed, RandomLibrary::Amounts::wholeCents);
        test_.store->replaceLibrary(source_.make(10 + source_.below(60)), std::nullopt);
    }

    void expectAgreement() {
        expectSidebarAgrees();
        for (const Account& account : test_.library().accounts) {
            SCOPED_TRACE("account " + account.id.toString());
            expectRegisterAgrees(account);
            expectReconcilingAgrees(account);
            expectExportAgrees(account);
        }
        for (const Transaction& entry : test_.library().transactions) {
            expectSplitsAgree(entry);
        }
    }

    /// A person does one thing that moves money.
    void enterSomething() {
        switch (source_.below(5)) {
        case 0:
            enter(TransactionEditor(*test_, ActiveSheet::NewTransaction{anyAccount()}));
            break;
        case 1:
            enter(TransactionEditor(*test_, ActiveSheet::EditTransaction{anyEntry()}));
            break;
        case 2:
            split(TransactionEditor(*test_, ActiveSheet::EditTransaction{anyEntry()}));
            break;
        case 3:
            changeAccount();
            break;
        default:
            reconcile();
        }
        ASSERT_FALSE(test_.store->lastError());
    }

private:
    void expectSidebarAgrees() {
        const auto sidebar = SidebarView(*test_).content();
        Decimal assets;
        Decimal liabilities;
        for (const SidebarContent::Section& section : sidebar->sections) {
            Decimal total;
            for (const SidebarContent::AccountRow& row : section.rows) {
                const Decimal balance = figure(row.balance.text);
                (balance.isNegative() ? liabilities : assets) += balance;
                total += balance;
            }
            EXPECT_EQ(figure(section.total.text), total);
        }
        const SidebarContent::Footer& footer = sidebar->footer;
        EXPECT_EQ(figure(footer.assets.text), assets);
        EXPECT_EQ(figure(footer.liabilities.text), liabilities);
        EXPECT_EQ(figure(footer.netWorth.text), assets + liabilities);
    }

    void expectRegisterAgrees(const Account& account) {
        RegisterView view(*test_, account.id);
        const Date endOfToday = test_.clock.calendar().endOfDay(test_.clock.now());
        Decimal ending = shown(account.openingBalance);
        Decimal today = ending;
        Decimal cleared = ending;
        Decimal selected;
        view.setSort({"date", true});
        UUIDSet selection;
        for (const RegisterRow* row : view.content()->table->rows()) {
            const Decimal change = shown(row->deposit()) - shown(row->payment());
            ending += change;
            ASSERT_EQ(shown(row->balance), ending);
            today += row->date <= endOfToday ? change : Decimal();
            cleared += row->cleared != ClearedState::uncleared ? change : Decimal();
            if (source_.chance(2)) {
                selection.insert(row->id);
                selected += change;
            }
        }
        view.select(selection);
        const RegisterFooter footer = view.content()->footer;
        if (footer.selection) {
            EXPECT_EQ(shown(footer.selection->amount), selected);
        }
        if (!holdsInvestments(account.id)) {
            EXPECT_EQ(shown(footer.figures[0].amount), cleared);
            EXPECT_EQ(shown(footer.figures[1].amount), today);
            EXPECT_EQ(shown(footer.figures[2].amount), ending);
        }
        if (footer.figures.size() > 3) {
            EXPECT_EQ(shown(footer.figures[3].amount),
                      shown(*account.creditLimit) + shown(footer.figures[1].amount));
        }
    }

    void expectReconcilingAgrees(const Account& account) {
        const ReconcileView sheet(*test_, account.id);
        const auto content = sheet.content();
        Decimal cleared = shown(content->reconciled);
        for (const ReconcileRow* row : content->table->rows()) {
            cleared += row->isChecked ? shown(row->amount) : Decimal();
        }
        EXPECT_EQ(shown(content->clearedTotal), cleared);
        EXPECT_EQ(shown(content->difference), shown(sheet.statementBalance()) - cleared);
        EXPECT_EQ(content->isMatched(), shown(content->difference).isZero());
    }

    void expectExportAgrees(const Account& account) {
        const LibraryIndex& index = test_.index();
        const auto entries = index.transactions(account.id);
        const std::string text =
            Exporter::qif(account, {entries.begin(), entries.end()}, index, test_.clock.calendar());
        Decimal exported;
        for (const std::string_view line : oakfen::split(text, '\n')) {
            if (line.starts_with('T')) {
                exported += Decimal::parse(line.substr(1)).value();
            }
        }
        EXPECT_EQ(exported,
                  sum(entries, [](const Transaction* each) { return shown(each->amount); }));
    }

    void expectSplitsAgree(const Transaction& entry) {
        const TransactionEditor editor(*test_, ActiveSheet::EditTransaction{entry.id});
        if (editor.useSplits) {
            EXPECT_EQ(shown(editor.splitsTotal()), shownTotal(editor));
            EXPECT_EQ(shown(editor.splitsTotal()), shown(editor.amount));
            EXPECT_EQ(editor.remainderText(), "");
        }
    }

    static Decimal shownTotal(const TransactionEditor& editor) {
        return sum(editor.splits, [](const auto& line) { return shown(line.amount); });
    }

    [[nodiscard]] bool holdsInvestments(const UUID& accountID) const {
        return test_.library().investmentTransactions.first(
                   [&](const auto& row) { return row.accountID == accountID; }) != nullptr;
    }

    UUID anyAccount() {
        const auto& accounts = test_.library().accounts;
        return accounts[source_.below(accounts.size())].id;
    }
    UUID anyEntry() {
        const auto& entries = test_.library().transactions;
        return entries[source_.below(entries.size())].id;
    }

    /// What a person may type for an amount.
    std::string typing() {
        const auto number = [this] { return std::to_string(1 + source_.below(100'000)); };
        switch (source_.below(7)) {
        case 0:
            return number() + "." + number().substr(0, 2);
        case 1:
            return number() + "/" + std::to_string(1 + source_.below(13));
        case 2:
            return number() + ".99*1.13";
        case 3:
            return number() + "." + number() + number();
        case 4:
            return "1/3+2/7-" + number() + "/9";
        case 5:
            return "0.00" + number();
        default:
            return number() + ".005";
        }
    }

    /// What a field holds after that was typed into it: exactly what it then shows.
    Decimal typed(const Decimal& before) {
        AmountEntry entry(before);
        entry.edit(typing());
        entry.finishEditing();
        EXPECT_EQ(entry.explanation(), "");
        EXPECT_EQ(figure(entry.text()), entry.value());
        return entry.value();
    }

    void enter(TransactionEditor editor) {
        editor.draft.payee = "Shop";
        editor.setKind(source_.any<TransactionEditor::Kind>());
        editor.useSplits = false;
        editor.amount = typed(editor.amount);
        editor.transferSelection = anyAccount();
        if (editor.canSave()) {
            editor.save();
        }
    }

    void split(TransactionEditor editor) {
        editor.draft.payee = "Market";
        editor.setKind(TransactionEditor::Kind::payment);
        editor.splitAcrossCategories();
        for (TransactionEditor::SplitDraft& line : editor.splits) {
            line.amount = typed(line.amount);
        }
        expectRemainderAgrees(editor);
        if (source_.chance(2)) {
            editor.removeSplits();
        }
        if (editor.canSave()) {
            editor.save();
        }
    }

    static void expectRemainderAgrees(const TransactionEditor& editor) {
        const Decimal remainder = shown(editor.amount) - shownTotal(editor);
        const std::string text = editor.remainderText();
        if (text.empty()) {
            EXPECT_TRUE(remainder.isZero() || editor.amount.isZero());
            return;
        }
        const bool isMore = text.find(" more than ") != std::string::npos;
        EXPECT_EQ(figure(text.substr(0, text.find(isMore ? " more than " : " of "))),
                  isMore ? -remainder : remainder);
    }

    void changeAccount() {
        AccountEditor editor(*test_, anyAccount());
        editor.draft.name = "Account";
        editor.draft.openingBalance = typed(editor.draft.openingBalance);
        editor.creditLimit = typed(editor.creditLimit);
        editor.save();
    }

    void reconcile() {
        ReconcileView sheet(*test_, anyAccount());
        sheet.markAll();
        sheet.setStatementBalance(typed(sheet.statementBalance()));
        sheet.finish();
    }

    const LocaleForTest locale_{"en_CA"};
    RandomLibrary source_{0};
    TestEnvironment test_;
};

TEST_F(FiguresAgree, WithTheirPartsOnEveryScreenThroughAnyEntry) {
    for (std::uint64_t seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        open(seed);
        expectAgreement();
        for (int entry = 0; entry < 6; ++entry) {
            enterSomething();
            expectAgreement();
            if (HasFailure()) {
                return;
            }
        }
    }
}

} // namespace
} // namespace oakfen
