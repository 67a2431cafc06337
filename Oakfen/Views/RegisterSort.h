#pragma once

#include <array>
#include <string>
#include <unordered_map>
#include <vector>

#include "OakfenCore/LibraryIndex/RegisterRow.h"

namespace oakfen {

/// The columns of a register, from left to right.
enum class RegisterColumn {
    cleared,
    date,
    number,
    payee,
    category,
    tags,
    payment,
    deposit,
    balance
};

template <>
inline constexpr auto allCases<RegisterColumn> =
    std::array{RegisterColumn::cleared, RegisterColumn::date,     RegisterColumn::number,
               RegisterColumn::payee,   RegisterColumn::category, RegisterColumn::tags,
               RegisterColumn::payment, RegisterColumn::deposit,  RegisterColumn::balance};

/// The column that a register is sorted by. All can be sorted but tags.
struct RegisterSort {
    RegisterColumn column = RegisterColumn::date;
    bool ascending = false;

    friend bool operator==(const RegisterSort&, const RegisterSort&) = default;
};

/// Sorts rows for people. Rows with equal keys stay as they came, in both directions.
class RegisterSorter {
public:
    void sort(std::vector<const RegisterRow*>& rows, const RegisterSort& order);

private:
    /// Kept from one sort to the next, as making them is what takes long.
    std::unordered_map<std::string, std::string> sortKeys_;
};

} // namespace oakfen
