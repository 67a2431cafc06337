#include <string_view>

#include "OakfenCore/Exporters/ExportOrder.h"
#include "OakfenCore/Exporters/Exporter.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen::Exporter {

namespace {

bool looksLikeAFormula(std::string_view text) {
    constexpr std::string_view firstCharacters = "=+-@\t\r";
    return !text.empty() && firstCharacters.find(text.front()) != std::string_view::npos;
}

std::string quoted(std::string_view text) {
    std::string field = "\"";
    for (const char character : text) {
        if (character == '"') {
            field += '"';
        }
        field += character;
    }
    return field + '"';
}

/// Appends one line; `isText` tells of a cell's position.
template <typename IsText>
void appendLine(std::string& text, const std::vector<std::string>& cells, IsText&& isText) {
    for (std::size_t column = 0; column < cells.size(); ++column) {
        if (column > 0) {
            text += ',';
        }
        text += csvField(cells[column], isText(column));
    }
    text += '\n';
}

} // namespace

std::string guarded(std::string_view text) {
    std::string result(looksLikeAFormula(text) ? "'" : "");
    return result += text;
}

std::string csvField(std::string_view text, bool isText) {
    if (isText && looksLikeAFormula(text)) {
        return quoted(guarded(text));
    }
    return text.find_first_of(",\"\n\r") == std::string_view::npos ? std::string(text)
                                                                   : quoted(text);
}

std::string csv(const std::vector<std::string>& header,
                const std::vector<std::vector<std::string>>& rows,
                const std::set<std::size_t>& numericColumns) {
    std::string text;
    appendLine(text, header, [](std::size_t) { return true; });
    for (const auto& row : rows) {
        appendLine(text, row, [&](std::size_t column) { return !numericColumns.contains(column); });
    }
    return text;
}

std::string transactionsCSV(std::vector<const Transaction*> transactions, const LibraryIndex& index,
                            const Calendar& calendar) {
    sortInLedgerOrder(transactions);
    std::vector<std::vector<std::string>> rows;
    rows.reserve(transactions.size());
    for (const Transaction* entry : transactions) {
        const Account* account = index.account(entry->accountID);
        rows.push_back(
            {isoDate(entry->date, calendar), account != nullptr ? account->name : std::string(),
             entry->checkNumber, entry->payee, index.categoryDescription(*entry), entry->memo,
             plain(entry->amount), std::string(title(entry->cleared)), joined(entry->tags, "; ")});
    }
    constexpr std::size_t amountColumn = 6;
    return csv({"Date", "Account", "Num", "Payee", "Category", "Memo", "Amount", "Status", "Tags"},
               rows, {amountColumn});
}

} // namespace oakfen::Exporter
