#include "Oakfen/Views/Register/RegisterView.h"

#include <algorithm>
#include <utility>

#include "Oakfen/FileActions.h"

namespace oakfen {

RegisterView::RegisterView(AppEnvironment& environment, const UUID& accountID)
    : Screen(environment), EntryList(environment), accountID_(accountID), rows_(accountID),
      transactionSaved_(
          environment.appState.transactionSaved.observe([this](const UUID& id) { reveal(id); })),
      entryWanted_(environment.appState.entryWanted.observe([this](const UUID& id) { show(id); })) {
}

void RegisterView::setFilter(RegisterFilter filter) {
    if (filter != filter_) {
        filter_ = filter;
        hidden_.clear();
        stateChanged();
    }
}

void RegisterView::setSearchText(std::string text) {
    if (text != searchText_) {
        searchText_ = std::move(text);
        hidden_.clear();
        stateChanged();
    }
}

void RegisterView::setSort(const TableOrder& sort) {
    sort_ = sort;
    stateChanged();
}

void RegisterView::sortBy(std::string_view column) {
    setSort(afterClick(sort_, columns(), column));
}

std::vector<MenuEntry> RegisterView::sortMenu() {
    return sortMenuOf(*this);
}

void RegisterView::select(UUIDSet ids) {
    if (ids != *selection_) {
        selection_ = std::make_shared<const UUIDSet>(std::move(ids));
        stateChanged();
    }
}

void RegisterView::deleted(const UUIDSet& ids) {
    select(without(*selection_, ids));
}

std::string RegisterView::copiedText() const {
    const auto shown = content();
    return clipboardText(*shown->table, rowsOf(*shown->selection, *shown->table));
}

void RegisterView::newTransaction() {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::NewTransaction{accountID_}});
}

void RegisterView::reconcile() {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::Reconcile{accountID_}});
}

void RegisterView::editAccount() {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::EditAccount{accountID_}});
}

void RegisterView::importTransactions() {
    FileActions::importTransactions(environment_);
}

RegisterContent RegisterView::derive(const RegisterContent* earlier) const {
    RegisterContent content{.filter = filter_,
                            .searchText = searchText_,
                            .sort = sort_,
                            .table = tableAfter(earlier != nullptr ? earlier->table : nullptr),
                            .hiddenNotice = hiddenNotice(),
                            .revealed = revealed_};
    if (const Account* shown = account()) {
        content.title = shown->name;
        content.subtitle = shown->institution.empty() ? std::string(oakfen::title(shown->type))
                                                      : shown->institution;
    }
    content.rowPastToday = rowPastToday(*content.table);
    content.selection = shownOf(selection_, *content.table);
    content.footer = footer(*content.table, *content.selection);
    return content;
}

const Account* RegisterView::account() const {
    return environment_.store.index().account(accountID_);
}

const Columns<RegisterRow>& RegisterView::columns() const {
    const Account* shown = account();
    return registerColumns(shown != nullptr && isLiability(shown->type));
}

const RegisterRows::State& RegisterView::rows() const {
    return rows_.at(environment_.store.sharedIndex());
}

RegisterView::SharedTable RegisterView::tableAfter(const SharedTable& earlier) const {
    Choice choice{environment_.store.sharedIndex(), filter_, searchText_, sort_};
    if (earlier != nullptr && choice == shownChoice_) {
        return earlier;
    }
    const RegisterRows::State all = rows();
    if (choice.index != shownChoice_.index) {
        reaches_ = reachesOf<RegisterRow>(columns(), *all);
    }
    shownChoice_ = std::move(choice);
    return keepingEqual(earlier, std::make_shared<const Table<RegisterRow>>(
                                     columns(), filteredRows(*all), all, reaches_, cellContext()));
}

std::vector<const RegisterRow*>
RegisterView::filteredRows(const SharedArray<RegisterRow>& all) const {
    RegisterRowTest test = rowTest();
    std::vector<const RegisterRow*> shown;
    shown.reserve(all.size());
    for (const RegisterRow& row : all) {
        if (test.shows(row)) {
            shown.push_back(&row);
        }
    }
    sorter_.sort(shown, *columnNamed(columns(), sort_.column), sort_.ascending);
    return shown;
}

RegisterRowTest RegisterView::rowTest() const {
    return {RegisterFilterTest(filter_, environment_.clock.now(), environment_.clock.calendar()),
            searchText_};
}

std::optional<std::size_t> RegisterView::rowPastToday(const Table<RegisterRow>& table) const {
    if (sort_.column != "date") {
        return std::nullopt;
    }
    const Date endOfToday = cellContext().endOfToday;
    const auto& rows = table.rows();
    const auto first = std::ranges::partition_point(
        rows, [&](const RegisterRow* row) { return (row->date <= endOfToday) == sort_.ascending; });
    if (first == rows.begin() || first == rows.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(first - rows.begin());
}

RegisterFooter RegisterView::footer(const Table<RegisterRow>& table,
                                    const UUIDSet& selection) const {
    const LibraryIndex& index = environment_.store.index();
    const Decimal balance = index.balance(accountID_);
    RegisterFooter footer{.figures = {{"Cleared", index.clearedBalance(accountID_)},
                                      {"Today", balance},
                                      {"Ending", index.endingBalance(accountID_)}}};
    const Account* shown = account();
    if (shown != nullptr && shown->creditLimit && shown->creditLimit->isPositive()) {
        footer.figures.push_back({"Available Credit", *shown->creditLimit + balance});
    }
    footer.selection =
        selectedFigure(table, selection, [](const RegisterRow& row) { return row.amount; });
    return footer;
}

} // namespace oakfen
