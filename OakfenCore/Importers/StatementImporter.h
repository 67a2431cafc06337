#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/Support/Number/Decimal.h"
#include "OakfenCore/Support/Time/Calendar.h"
#include "OakfenCore/Support/Time/Date.h"
#include "OakfenCore/Support/Values/LocalizedError.h"
#include "OakfenCore/Support/Values/UUID.h"

namespace oakfen {

/// One line of a bank's statement.
struct ImportedTransaction {
    /// New for each parsed line; never stored in the ledger.
    UUID id;
    Date date;
    std::string payee;
    /// Negative for money out.
    Decimal amount;
    std::string memo;
    std::string checkNumber;
    /// A category's path as the statement spelled it.
    std::optional<std::string> categoryName = {};
    /// The bank's own id of the entry.
    std::optional<std::string> importID = {};

    friend bool operator==(const ImportedTransaction&, const ImportedTransaction&) = default;
};

enum class ImportFormat { csv, qif, ofx };

/// The format that a file's extension (without the point, in any case) stands for.
[[nodiscard]] std::optional<ImportFormat> importFormat(std::string_view fileExtension);

/// A statement can't be taken in.
class ImportError : public LocalizedError {
public:
    enum class Kind { unreadable, unsupportedFormat, noTransactions, fileTooLarge };

    explicit ImportError(Kind kind);
    [[nodiscard]] Kind kind() const noexcept { return kind_; }

private:
    Kind kind_;
};

/// Bytes of a statement in, plain lines out; knows nothing of the ledger.
namespace StatementImporter {

/// The largest statement that is read, in bytes.
inline constexpr std::size_t maxBytes = 26214400;

/// The lines of the statement in the file's order. Dates are midnights of the calendar. Lines that
/// can't be read are left out. Throws `ImportError`.
[[nodiscard]] std::vector<ImportedTransaction> parse(std::string_view data, ImportFormat format,
                                                     const Calendar& calendar);

/// The rows and cells of comma-separated text, all at once: for tests. Statements are read row by
/// row.
[[nodiscard]] std::vector<std::vector<std::string>> csvRows(std::string_view text);

} // namespace StatementImporter

} // namespace oakfen
