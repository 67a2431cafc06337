#include "Oakfen/Views/RegisterView.h"

#include <algorithm>
#include <utility>

#include "Oakfen/Views/RegisterCopy.h"
#include "OakfenCore/Support/Text.h"

namespace oakfen {

RegisterView::RegisterView(AppEnvironment& environment, const UUID& accountID)
    : environment_(environment), accountID_(accountID) {}

const Account* RegisterView::account() const {
    return environment_.store.index().account(accountID_);
}

std::string RegisterView::title() const {
    const Account* shown = account();
    return shown != nullptr ? shown->name : std::string();
}

std::string RegisterView::subtitle() const {
    const Account* shown = account();
    if (shown == nullptr) {
        return {};
    }
    return shown->institution.empty() ? std::string(oakfen::title(shown->type))
                                      : shown->institution;
}

std::string_view RegisterView::columnTitle(RegisterColumn column) const {
    const Account* shown = account();
    const bool isOwed = shown != nullptr && isLiability(shown->type);
    switch (column) {
    case RegisterColumn::cleared:
        return "";
    case RegisterColumn::date:
        return "Date";
    case RegisterColumn::number:
        return "Num";
    case RegisterColumn::payee:
        return "Payee";
    case RegisterColumn::category:
        return "Category";
    case RegisterColumn::tags:
        return "Tags";
    case RegisterColumn::payment:
        return isOwed ? "Charge" : "Payment";
    case RegisterColumn::deposit:
        return isOwed ? "Payment" : "Deposit";
    case RegisterColumn::balance:
        return "Balance";
    }
    return {};
}

std::string_view RegisterView::columnName(RegisterColumn column) const {
    return column == RegisterColumn::cleared ? "Cleared" : columnTitle(column);
}

bool RegisterView::isSortable(RegisterColumn column) {
    return column != RegisterColumn::tags;
}

const std::vector<RegisterRow>& RegisterView::rows() const {
    auto index = environment_.store.sharedIndex();
    if (index == rowsIndex_) {
        return rows_;
    }
    if (rowsIndex_ == nullptr) {
        rows_ = index->registerRows(accountID_);
    } else {
        index->updateRegisterRows(rows_, accountID_, *rowsIndex_);
    }
    rowsIndex_ = std::move(index);
    amounts_ = {};
    for (const RegisterRow& row : rows_) {
        amounts_.entries.include(row.amount);
        amounts_.balances.include(row.balance);
    }
    return rows_;
}

const RegisterAmounts& RegisterView::amounts() const {
    static_cast<void>(rows());
    return amounts_;
}

std::vector<const RegisterRow*> RegisterView::filteredRows() const {
    RegisterRowTest test = rowTest();
    std::vector<const RegisterRow*> shown;
    shown.reserve(rows().size());
    for (const RegisterRow& row : rows()) {
        if (test.shows(row)) {
            shown.push_back(&row);
        }
    }
    sorter_.sort(shown, sort);
    return shown;
}

RegisterRowTest RegisterView::rowTest() const {
    return {RegisterFilterTest(filter, environment_.clock.now(), environment_.clock.calendar()),
            searchText};
}

bool RegisterView::isNarrowed() const {
    return !searchText.empty() || filter != RegisterFilter::all;
}

EmptyState RegisterView::emptyState() const {
    if (!isNarrowed()) {
        return {.title = "No Transactions",
                .symbolName = "list.bullet.rectangle",
                .text = "Add a transaction or import a statement from your bank."};
    }
    const std::string_view term = trimmingWhitespaces(searchText);
    return {.title = term.empty() ? "No Results" : "No Results for “" + std::string(term) + "”",
            .symbolName = "magnifyingglass",
            .text = "Check the spelling, or try another search or filter."};
}

RegisterFooter RegisterView::footer() const {
    const LibraryIndex& index = environment_.store.index();
    const Decimal balance = index.balance(accountID_);
    RegisterFooter footer{.figures = {{"Cleared", index.clearedBalance(accountID_)},
                                      {"Today", balance},
                                      {"Ending", index.endingBalance(accountID_)}}};
    const Account* shown = account();
    if (shown != nullptr && shown->creditLimit && shown->creditLimit->isPositive()) {
        footer.figures.push_back({"Available Credit", *shown->creditLimit + balance});
    }
    if (!selection.empty()) {
        const Decimal total = sum(rows(), [this](const RegisterRow& row) {
            return selection.contains(row.id) ? row.amount : Decimal();
        });
        footer.selection = {std::to_string(selection.size()) + " selected", total};
    }
    return footer;
}

void RegisterView::sortBy(RegisterColumn column) {
    if (!isSortable(column)) {
        return;
    }
    sort = {.column = column, .ascending = sort.column != column || !sort.ascending};
}

void RegisterView::keepSelectionVisible(const std::vector<const RegisterRow*>& shown) {
    if (selection.empty()) {
        return;
    }
    const auto isSelected = [this](const RegisterRow* row) { return selection.contains(row->id); };
    // Mostly all of it is; a set of thousands isn't made again for nothing.
    if (static_cast<std::size_t>(std::ranges::count_if(shown, isSelected)) == selection.size()) {
        return;
    }
    UUIDSet visible;
    for (const RegisterRow* row : shown) {
        if (isSelected(row)) {
            visible.insert(row->id);
        }
    }
    selection = std::move(visible);
}

std::string RegisterView::copiedText(const std::vector<const RegisterRow*>& shown) const {
    const Calendar calendar = environment_.clock.calendar();
    std::vector<std::string> lines;
    for (const RegisterRow* row : shown) {
        if (selection.contains(row->id)) {
            lines.push_back(copiedLine(*row, calendar));
        }
    }
    return joined(lines, "\n");
}

} // namespace oakfen
