#include "Oakfen/Views/Components/PickerMatches.h"

#include <array>

#include "OakfenCore/Support/Text/Quotation.h"
#include "OakfenCore/Support/Text/SearchFolding.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

/// The text as it is compared: however people write the colons of a path.
std::string comparable(std::string_view text) {
    std::string result;
    for (const std::string_view name : split(text, ':')) {
        result += (result.empty() && name.data() == text.data() ? "" : ":");
        result += trimmingWhitespaces(name);
    }
    return foldedForSearch(result);
}

/// "groceries" of "food:groceries", and "euro" of "eur – euro".
std::string_view lastName(std::string_view title) {
    constexpr std::string_view dash = "– ";
    if (const std::size_t place = title.rfind(dash); place != std::string_view::npos) {
        return title.substr(place + dash.size());
    }
    const std::size_t colon = title.rfind(':');
    return colon == std::string_view::npos ? title : title.substr(colon + 1);
}

bool beginsWithWord(std::string_view title, std::string_view word) {
    return title.starts_with(word) && title.size() > word.size() && title[word.size()] == ' ';
}

/// The rows with their titles as they are compared.
std::vector<std::string> comparableTitles(const std::vector<PickerRow>& rows) {
    std::vector<std::string> titles;
    titles.reserve(rows.size());
    for (const PickerRow& row : rows) {
        titles.push_back(comparable(singleLine(row.title)));
    }
    return titles;
}

template <typename Fits>
std::optional<std::size_t> firstRow(const std::vector<PickerRow>& rows, Fits fits) {
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (!rows[row].isHeader && fits(row)) {
            return row;
        }
    }
    return std::nullopt;
}

} // namespace

std::vector<PickerLine> pickerLines(const std::vector<PickerRow>& rows, std::string_view typed,
                                    const CategoryOffer& offer) {
    const std::string term = comparable(typed);
    const std::vector<std::string> titles = comparableTitles(rows);
    std::vector<PickerLine> lines;
    // Of the section whose rows come next, until one of them is listed.
    const PickerRow* header = nullptr;
    bool isThere = false;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row].isHeader) {
            header = &rows[row];
            continue;
        }
        const bool isKnown = offer.known && rows[row].id == offer.known;
        if (!isKnown && titles[row].find(term) == std::string::npos) {
            continue;
        }
        if (header != nullptr) {
            lines.push_back({PickerLine::Kind::header, singleLine(header->title)});
            header = nullptr;
        }
        lines.push_back({PickerLine::Kind::choice, singleLine(rows[row].title), row});
        isThere = isThere || titles[row] == term;
    }
    if (!isThere && !offer.path.empty()) {
        lines.push_back({PickerLine::Kind::creation, offer.title()});
    } else if (!isThere && !offer.remark.empty()) {
        lines.push_back({PickerLine::Kind::remark, offer.remark});
    } else if (lines.empty()) {
        lines.push_back({PickerLine::Kind::remark, "No matches"});
    }
    return lines;
}

std::optional<std::size_t> meantRow(const std::vector<PickerRow>& rows, std::string_view typed) {
    const std::string term = comparable(typed);
    if (term.empty()) {
        return firstRow(rows, [&](std::size_t row) { return !rows[row].id; });
    }
    const std::vector<std::string> titles = comparableTitles(rows);
    using Fits = bool (*)(std::string_view title, std::string_view sought);
    constexpr std::array<Fits, 4> closestFirst{
        [](std::string_view title, std::string_view sought) { return title == sought; },
        [](std::string_view title, std::string_view sought) { return lastName(title) == sought; },
        &beginsWithWord,
        [](std::string_view title, std::string_view sought) {
            return title.find(sought) != std::string_view::npos;
        }};
    for (const Fits fits : closestFirst) {
        if (const auto row =
                firstRow(rows, [&](std::size_t each) { return fits(titles[each], term); })) {
            return row;
        }
    }
    return std::nullopt;
}

std::string pickerExplanation(PickerSubject subject, std::string_view typed,
                              const CategoryOffer& offer) {
    const std::string_view text = trimmingWhitespaces(typed);
    if (text.empty()) {
        return subject == PickerSubject::account    ? "Choose an account."
               : subject == PickerSubject::category ? "Choose a category."
                                                    : "Choose one of the list.";
    }
    std::string explanation = quoted(text);
    explanation += subject == PickerSubject::account    ? " isn’t an account."
                   : subject == PickerSubject::category ? " isn’t a category."
                                                        : " isn’t in the list.";
    if (!offer.path.empty()) {
        explanation += " Choose “Create” in its list to make it one.";
    } else if (!offer.remark.empty()) {
        explanation += " " + offer.remark;
    }
    return explanation;
}

} // namespace oakfen
