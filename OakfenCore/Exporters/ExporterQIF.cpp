#include <algorithm>
#include <string_view>

#include "OakfenCore/Exporters/ExportOrder.h"
#include "OakfenCore/Exporters/Exporter.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen::Exporter {

namespace {

std::string_view sectionName(AccountType type) {
    switch (type) {
    case AccountType::cash:
        return "Cash";
    case AccountType::creditCard:
    case AccountType::lineOfCredit:
        return "CCard";
    case AccountType::asset:
        return "Oth A";
    case AccountType::liability:
    case AccountType::loan:
        return "Oth L";
    case AccountType::chequing:
    case AccountType::savings:
    case AccountType::brokerage:
    case AccountType::retirement:
        break;
    }
    return "Bank";
}

/// The text on one line, since a line end would end the field.
std::string cleaned(std::string text) {
    std::ranges::replace_if(
        text, [](char character) { return character == '\r' || character == '\n'; }, ' ');
    return text;
}

/// The category's path with the format's own separator.
std::string categoryText(const std::optional<UUID>& id, const LibraryIndex& index) {
    return replacingAll(cleaned(index.categoryName(id)), ": ", ":");
}

/// Writes the entries of one file.
class Writer {
public:
    Writer(const LibraryIndex& index, const Calendar& calendar)
        : index_(index), calendar_(calendar) {}

    void line(std::string_view code, std::string_view value) {
        text_ += code;
        text_ += value;
        text_ += '\n';
    }

    void entry(const Transaction& entry) {
        line("D", qifDate(entry.date, calendar_));
        line("T", plain(entry.amount));
        optionalLine("N", entry.checkNumber);
        line("P", cleaned(entry.payee));
        optionalLine("M", entry.memo);
        if (entry.cleared != ClearedState::uncleared) {
            line("C", entry.cleared == ClearedState::reconciled ? "X" : "*");
        }
        category(entry);
        line("^", "");
    }

    [[nodiscard]] std::string take() { return std::move(text_); }

private:
    void optionalLine(std::string_view code, const std::string& value) {
        if (!value.empty()) {
            line(code, cleaned(value));
        }
    }

    void category(const Transaction& entry) {
        if (entry.transferAccountID) {
            const Account* other = index_.account(*entry.transferAccountID);
            line("L[", (other != nullptr ? cleaned(other->name) : std::string()) + "]");
            return;
        }
        for (const Split& split : entry.splits) {
            line("S", categoryText(split.categoryID, index_));
            optionalLine("E", split.memo);
            line("$", plain(split.amount));
        }
        if (entry.splits.empty() && entry.categoryID) {
            line("L", categoryText(entry.categoryID, index_));
        }
    }

    const LibraryIndex& index_;
    const Calendar& calendar_;
    std::string text_;
};

} // namespace

std::string qif(const Account& account, std::vector<const Transaction*> transactions,
                const LibraryIndex& index, const Calendar& calendar) {
    sortInLedgerOrder(transactions);
    Writer writer(index, calendar);
    writer.line("!Type:", sectionName(account.type));
    for (const Transaction* entry : transactions) {
        writer.entry(*entry);
    }
    return writer.take();
}

} // namespace oakfen::Exporter
