#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// What a column of a delimited statement holds. One column may serve several roles.
enum class CSVRole { date, payee, amount, debit, credit, category, memo, checkNumber };

inline constexpr std::size_t csvRoleCount = 8;

/// Where a delimited statement keeps what.
struct CSVLayout {
    bool hasHeader = false;
    std::array<std::optional<std::size_t>, csvRoleCount> columns;

    [[nodiscard]] std::optional<std::size_t>& operator[](CSVRole role) {
        return columns[static_cast<std::size_t>(role)];
    }
    [[nodiscard]] const std::optional<std::size_t>& operator[](CSVRole role) const {
        return columns[static_cast<std::size_t>(role)];
    }
};

/// Tells the layout from the first row: its names when it is a header, else its width. Nothing when
/// there is no row, or when the header names no date or no amount.
[[nodiscard]] std::optional<CSVLayout> csvLayout(std::string_view text, const Calendar& calendar);

} // namespace oakfen
