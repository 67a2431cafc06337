#include <algorithm>
#include <string>
#include <vector>

#include "Fuzz/NaiveCSV.h"
#include "Fuzz/Targets.h"
#include "OakfenCore/Importers/DuplicateFinder.h"
#include "OakfenCore/Importers/Merging.h"
#include "OakfenCore/Importers/StatementImporter.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen::fuzz {

namespace {

using Lines = std::vector<ImportedTransaction>;

const Calendar& calendar() {
    static const Calendar havana = Calendar::inZone("America/Havana").value();
    return havana;
}

/// The statement's lines without the ids that are new each time; none where it has none.
Lines linesOf(std::string_view bytes, ImportFormat format) {
    try {
        Lines lines = StatementImporter::parse(bytes, format, calendar());
        require(!lines.empty(), "a statement without lines is refused");
        for (ImportedTransaction& line : lines) {
            line.id = {};
        }
        return lines;
    } catch (const ImportError& error) {
        require(error.kind() == ImportError::Kind::noTransactions,
                "a short statement is refused only for having no lines");
        return {};
    }
}

void requireSound(const Lines& lines) {
    for (const ImportedTransaction& line : lines) {
        require(!line.amount.isNaN(), "an imported amount is a number");
        require(calendar().date(calendar().civil(line.date)) <= line.date,
                "an imported date is on the calendar");
        for (const std::string* text : {&line.payee, &line.memo, &line.checkNumber}) {
            require(isValidUTF8(*text), "imported texts are UTF-8");
        }
        require(!line.importID || !line.importID->empty(), "no bank's id is no empty text");
    }
}

/// Merges the lines into an account that has some of them already, with and without the tables.
void merge(const Lines& lines) {
    Library library{.currencyCode = "CAD"};
    Account account;
    account.id.bytes[0] = 1;
    library.accounts.push_back(account);
    const std::size_t known = lines.size() / 2;
    importTransactions(library, std::span(lines).first(known), account.id, Date{}, calendar());
    require(library.transactions.size() == known, "lines of one file are not compared");

    std::vector<const Transaction*> existing;
    for (const Transaction& entry : library.transactions) {
        existing.push_back(&entry);
    }
    const DuplicateFinder finder(existing, calendar());
    std::size_t expected = known;
    for (const ImportedTransaction& line : lines) {
        const bool isKnown = isDuplicate(line, existing, calendar());
        require((finder.match(line) != nullptr) == isKnown, "both ways find the same duplicates");
        expected += isKnown ? 0 : 1;
    }
    importTransactions(library, lines, account.id, Date{}, calendar());
    require(library.transactions.size() == expected, "what is no duplicate is added");
}

/// A separator that ends whatever is open makes two statements of one.
void requireTwice(std::string_view bytes, std::string_view separator, ImportFormat format,
                  const Lines& once) {
    std::string text(bytes);
    text += separator;
    text += bytes;
    Lines twice = once;
    twice.insert(twice.end(), once.begin(), once.end());
    require(linesOf(text, format) == twice, "a statement twice over has its lines twice over");
}

std::string asUTF8(std::string_view bytes) {
    return isValidUTF8(bytes) ? std::string(bytes) : latin1ToUTF8(bytes);
}

} // namespace

void readCSVStatement(std::string_view bytes) {
    const std::string text = asUTF8(bytes);
    require(StatementImporter::csvRows(text) == NaiveCSV(text).rows, "rows and cells are the same");
    const Lines lines = linesOf(bytes, ImportFormat::csv);
    requireSound(lines);
    for (const ImportedTransaction& line : lines) {
        require(!line.categoryName || !line.categoryName->empty(), "no category is no empty text");
        require(!line.importID, "such a statement has no ids");
    }
    merge(lines);
}

void readQIFStatement(std::string_view bytes) {
    const Lines lines = linesOf(bytes, ImportFormat::qif);
    requireSound(lines);
    merge(lines);
    for (const ImportedTransaction& line : lines) {
        require(!line.categoryName || !line.categoryName->starts_with('['),
                "a transfer's account is no category");
        require(!line.importID, "such a statement has no ids");
    }
    const auto ends = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '^'));
    require(lines.size() <= ends, "every line was ended");
    requireTwice(bytes, "\n!Type:Bank\n", ImportFormat::qif, lines);
}

void readOFXStatement(std::string_view bytes) {
    const Lines lines = linesOf(bytes, ImportFormat::ofx);
    requireSound(lines);
    merge(lines);
    for (const ImportedTransaction& line : lines) {
        require(calendar().startOfDay(line.date) == line.date, "a date has no time of day");
        require(!line.categoryName, "such a statement has no categories");
    }
    requireTwice(bytes, "</STMTTRN>\n", ImportFormat::ofx, lines);
}

} // namespace oakfen::fuzz
