#include "Oakfen/Views/Register/FindRows.h"

#include "Oakfen/Views/Register/RegisterTable.h"
#include "Oakfen/Views/TableSort.h"

namespace oakfen {

const FindRows::SharedState& FindRows::at(const std::shared_ptr<const LibraryIndex>& index) {
    if (state_ != nullptr && state_->index == index) {
        return state_;
    }
    auto next = std::make_shared<State>();
    next->index = index;
    next->entries.reserve(index->library().transactions.size());
    std::erase_if(registers_, [&](const auto& each) { return !index->account(each.first); });
    for (const Account& account : index->library().accounts) {
        RegisterRows& rows = registers_.try_emplace(account.id, account.id).first->second;
        next->registers.push_back(rows.at(index));
        for (const RegisterRow& row : *next->registers.back()) {
            next->entries.push_back({row.id, &row, account.name});
        }
    }
    next->inOrder.reserve(next->entries.size());
    for (const FoundEntry& entry : next->entries) {
        next->inOrder.push_back(&entry);
    }
    TableSorter<FoundEntry>().sort(next->inOrder, *columnNamed(foundColumns(), "date"), true);
    state_ = std::move(next);
    return state_;
}

} // namespace oakfen
