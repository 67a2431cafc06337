#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "OakfenCore/Importers/StatementImporter.h"
#include "OakfenCore/Models/Library.h"

namespace oakfen::testing {

/// A calendar with daylight-saving time, west of Greenwich.
inline const Calendar& toronto() {
    static const Calendar calendar = Calendar::inZone("America/Toronto").value();
    return calendar;
}

/// The local midnight.
inline Date day(int year, int month, int dayOfMonth) {
    return toronto().date({.year = year, .month = month, .day = dayOfMonth});
}

inline Decimal money(std::string_view text) {
    return Decimal::parse(text).value();
}

inline std::vector<ImportedTransaction> lines(std::string_view text, ImportFormat format) {
    return StatementImporter::parse(text, format, toronto());
}

/// The one line of the statement.
inline ImportedTransaction onlyLine(std::string_view text, ImportFormat format) {
    const auto all = lines(text, format);
    EXPECT_EQ(all.size(), 1U);
    return all.at(0);
}

/// What kind of error the statement ends in; nothing when it can be read.
inline std::optional<ImportError::Kind> errorKind(std::string_view text, ImportFormat format) {
    try {
        static_cast<void>(lines(text, format));
        return std::nullopt;
    } catch (const ImportError& error) {
        return error.kind();
    }
}

inline std::vector<std::string> payees(const std::vector<ImportedTransaction>& lines) {
    std::vector<std::string> names;
    for (const ImportedTransaction& line : lines) {
        names.push_back(line.payee);
    }
    return names;
}

inline ImportedTransaction importedLine(Date date, std::string payee, std::string_view amount) {
    return {.id = UUID::random(), .date = date, .payee = std::move(payee), .amount = money(amount)};
}

inline Transaction entry(const UUID& accountID, Date date, std::string payee,
                         std::string_view amount) {
    return {.id = UUID::random(),
            .accountID = accountID,
            .date = date,
            .payee = std::move(payee),
            .amount = money(amount)};
}

inline std::vector<const Transaction*> pointers(const std::vector<Transaction>& entries) {
    std::vector<const Transaction*> all;
    for (const Transaction& each : entries) {
        all.push_back(&each);
    }
    return all;
}

} // namespace oakfen::testing
