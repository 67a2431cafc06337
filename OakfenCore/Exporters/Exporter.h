#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/LibraryIndex/LibraryIndex.h"

/// Ledger data as text for other programs: plain values in, bytes out; no file is touched.
namespace oakfen::Exporter {

/// The text with an apostrophe before a first character that makes a spreadsheet take it for a
/// formula; any other text as it is.
[[nodiscard]] std::string guarded(std::string_view text);

/// One cell of comma-separated text. Texts are guarded; numbers keep their leading minus.
[[nodiscard]] std::string csvField(std::string_view text, bool isText);

/// A table as comma-separated text, each line ended by LF. All cells are texts but those of the
/// numeric columns, the header's included.
[[nodiscard]] std::string csv(const std::vector<std::string>& header,
                              const std::vector<std::vector<std::string>>& rows,
                              const std::set<std::size_t>& numericColumns);

/// Plain digits at no more than two decimals, without grouping: 12.50 reads "12.5".
[[nodiscard]] std::string plain(const Decimal& value);

/// "2026-03-05", the day on the calendar's clock.
[[nodiscard]] std::string isoDate(Date date, const Calendar& calendar);
/// "03/05/2026", likewise.
[[nodiscard]] std::string qifDate(Date date, const Calendar& calendar);

/// The entries as a table in ledger order, whatever their accounts.
[[nodiscard]] std::string transactionsCSV(std::vector<const Transaction*> transactions,
                                          const LibraryIndex& index, const Calendar& calendar);

/// The entries of one account in ledger order, in the exchange format of older finance programs.
[[nodiscard]] std::string qif(const Account& account, std::vector<const Transaction*> transactions,
                              const LibraryIndex& index, const Calendar& calendar);

} // namespace oakfen::Exporter
