#include "Oakfen/Views/Register/RegisterRows.h"

#include <algorithm>
#include <utility>

namespace oakfen {

const RegisterRows::State& RegisterRows::at(const std::shared_ptr<const LibraryIndex>& index) {
    if (index_ == nullptr) {
        state_ = std::make_shared<const SharedArray<RegisterRow>>(index->registerRows(accountID_));
    } else if (index != index_) {
        follow(*index);
    }
    index_ = index;
    return state_;
}

void RegisterRows::follow(const LibraryIndex& index) {
    if (rows_.empty()) {
        rows_.assign(state_->begin(), state_->end());
    }
    index.updateRegisterRows(rows_, accountID_, *index_);
    const auto before = index_->transactions(accountID_);
    const auto after = index.transactions(accountID_);
    const bool hasSameNames = index.library().categories == index_->library().categories &&
                              index.library().accounts == index_->library().accounts;
    auto next = std::make_shared<SharedArray<RegisterRow>>(*state_);
    const std::size_t common = std::min(before.size(), after.size());
    std::size_t place = 0;
    for (auto earlier = state_->begin(); place < common; ++place, ++earlier) {
        const RegisterRow& row = rows_[place];
        // Entries are immutable, so one that still lies at its address reads the same.
        const bool isSameEntry = hasSameNames && before[place] == after[place];
        if ((isSameEntry && row.balance == earlier->balance) || row == *earlier) {
            continue;
        }
        if (before.size() != after.size()) {
            break;
        }
        if (isSameEntry) {
            next->edit(place).balance = row.balance;
        } else {
            next->edit(place) = row;
        }
    }
    if (before.size() != after.size()) {
        replaceFrom(*next, place);
    }
    state_ = std::move(next);
}

void RegisterRows::replaceFrom(SharedArray<RegisterRow>& state, std::size_t place) const {
    if (place < state.size()) {
        std::size_t each = 0;
        state.eraseIf([&](const RegisterRow& /*row*/) { return each++ >= place; });
    }
    for (; place < rows_.size(); ++place) {
        state.push_back(rows_[place]);
    }
}

} // namespace oakfen
