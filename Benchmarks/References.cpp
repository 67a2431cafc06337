#include "Benchmarks/References.h"

#include <array>
#include <cstdint>

namespace oakfen::benchmarks {

namespace {

void appendID(std::string& text, const std::optional<UUID>& id) {
    if (id) {
        id->appendTo(text);
    }
    text.push_back(',');
}

void appendEntry(std::string& text, const Transaction& entry) {
    appendID(text, entry.id);
    appendID(text, entry.accountID);
    text.append(std::to_string(static_cast<std::int64_t>(entry.date.secondsSinceReference)));
    text.append(entry.payee).append(",");
    entry.amount.appendTo(text);
    appendID(text, entry.categoryID);
    for (const Split& split : entry.splits) {
        appendID(text, split.id);
        appendID(text, split.categoryID);
        split.amount.appendTo(text);
        text.append(split.memo);
    }
    appendID(text, entry.transferAccountID);
    appendID(text, entry.transferID);
    text.append(entry.memo).append(",").append(entry.checkNumber).append(",");
    text.append(rawValue(entry.cleared)).append(",");
    for (const std::string& tag : entry.tags) {
        text.append(tag).append(",");
    }
    text.append(entry.importID.value_or("")).append("\n");
}

} // namespace

Decimal passOverRecords(const Library& library) {
    std::array<Decimal, 3> totals;
    for (const Transaction& entry : library.transactions) {
        totals[static_cast<std::size_t>(entry.cleared)] += entry.amount;
    }
    return totals[0] + totals[1] + totals[2];
}

std::string copyToText(const Library& library) {
    std::string text;
    for (const Transaction& entry : library.transactions) {
        appendEntry(text, entry);
    }
    return text;
}

} // namespace oakfen::benchmarks
