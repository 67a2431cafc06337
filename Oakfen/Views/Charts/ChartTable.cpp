#include "Oakfen/Views/Charts/ChartTable.h"

#include <algorithm>
#include <utility>

#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

namespace {

constexpr const char* noValues = "No values.";

std::string joined(const std::vector<std::string>& texts) {
    std::string result;
    for (std::size_t index = 0; index < texts.size(); ++index) {
        if (index > 0) {
            result += index + 1 == texts.size() ? " and " : ", ";
        }
        result += texts[index];
    }
    return result;
}

std::string spokenNotes(const std::vector<ChartNote>& notes) {
    std::vector<std::string> texts;
    texts.reserve(notes.size());
    for (const ChartNote& note : notes) {
        texts.push_back(note.title + " " + note.amount.text);
    }
    return joined(texts);
}

/// What the chart tells of its places, with first and last figure where one series allows that.
std::string summary(const PlotChart& chart, const ChartTable& table) {
    if (table.cells.empty()) {
        return noValues;
    }
    const bool isAlone = table.columns.size() == 1;
    std::string text = isAlone ? "" : joined(table.columns) + ", ";
    text += table.rows.front();
    if (isAlone) {
        text += ": " + table.cells.front();
    }
    if (table.rows.size() > 1) {
        text += " to " + table.rows.back();
        if (isAlone) {
            text += ": " + table.cells.back();
        }
    }
    if (chart.rule) {
        text += "; " + chart.rule->name + ": " + chart.rule->value.text;
    }
    return text + ".";
}

/// Adds rows of one value each, and how many of them there are.
template <typename Parts>
void addParts(ChartTable& table, const Parts& parts) {
    for (const auto& part : parts) {
        table.rows.push_back(part.name);
        table.cells.push_back(part.value.text);
    }
    table.summary = noValues;
    if (!parts.empty()) {
        const auto largest =
            std::max_element(parts.begin(), parts.end(), [](const auto& a, const auto& b) {
                return a.value.value.value_or(0) < b.value.value.value_or(0);
            });
        table.summary = countText(parts.size()) + (parts.size() == 1 ? " value" : " values") +
                        ", the largest " + largest->name + ": " + largest->value.text + ".";
    }
}

} // namespace

std::string ChartTable::spoken(const ChartPoint& point) const {
    const std::string series = columns.size() > 1 ? ", " + columns[point.series] : "";
    return rows[point.place] + series + ": " + cell(point);
}

ChartTable chartTable(const PlotChart& chart) {
    ChartTable table{.title = chart.title, .leadsOn = chart.leadsOn};
    for (std::size_t index = 0; index < chart.seriesCount(); ++index) {
        table.columns.push_back(chart.series(index).name);
    }
    const bool hasNotes = std::any_of(chart.places.begin(), chart.places.end(),
                                      [](const ChartPlace& place) { return !place.notes.empty(); });
    for (std::size_t place = 0; place < chart.places.size(); ++place) {
        table.rows.push_back(chart.places[place].title);
        for (std::size_t index = 0; index < chart.seriesCount(); ++index) {
            table.cells.push_back(chart.value(place, index).text);
        }
        if (hasNotes) {
            table.notes.push_back(spokenNotes(chart.places[place].notes));
        }
    }
    table.summary = summary(chart, table);
    return table;
}

ChartTable chartTable(const RingChart& chart) {
    ChartTable table{.title = chart.title, .columns = {"Amount"}, .leadsOn = chart.leadsOn};
    addParts(table, chart.sectors);
    for (std::size_t index = 0; index < chart.sectors.size(); ++index) {
        if (const std::string& share = chart.sectors[index].share; !share.empty()) {
            table.cells[index] += ", " + share;
        }
    }
    if (!chart.sectors.empty() && !chart.figure.empty()) {
        table.summary += " " + chart.figure + " " + chart.caption + ".";
    }
    return table;
}

ChartTable chartTable(const HorizontalBarChart& chart) {
    ChartTable table{.title = chart.title, .columns = {chart.valueName}, .leadsOn = chart.leadsOn};
    addParts(table, chart.bars);
    return table;
}

ChartPoint moved(ChartPoint from, ChartMove move, const ChartTable& table) {
    const std::size_t lastPlace = table.rows.empty() ? 0 : table.rows.size() - 1;
    const std::size_t lastSeries = table.columns.empty() ? 0 : table.columns.size() - 1;
    switch (move) {
    case ChartMove::previousPlace:
        from.place -= from.place > 0 ? 1 : 0;
        break;
    case ChartMove::nextPlace:
        ++from.place;
        break;
    case ChartMove::firstPlace:
        from.place = 0;
        break;
    case ChartMove::lastPlace:
        from.place = lastPlace;
        break;
    case ChartMove::previousSeries:
        from.series -= from.series > 0 ? 1 : 0;
        break;
    case ChartMove::nextSeries:
        ++from.series;
        break;
    }
    return {std::min(from.place, lastPlace), std::min(from.series, lastSeries)};
}

ChartTooltip chartTooltip(const PlotChart& chart, std::size_t place) {
    ChartTooltip tooltip{
        .title = chart.places[place].title, .rows = {}, .notes = chart.places[place].notes};
    // Bars of several colours have no other name where they stand.
    const bool hasSwatches = chart.hasLegend || chart.bars.size() > 1;
    for (std::size_t index = 0; index < chart.seriesCount(); ++index) {
        const ChartSeries& series = chart.series(index);
        const ChartValue& value = chart.value(place, index);
        if (!value.text.empty()) {
            tooltip.rows.push_back(
                {.name = series.name,
                 .figure = value.text,
                 .swatch = hasSwatches ? std::optional(series.color) : std::nullopt});
        }
    }
    return tooltip;
}

ChartTooltip withMostNotes(ChartTooltip tooltip, std::size_t most) {
    if (tooltip.notes.size() <= most) {
        return tooltip;
    }
    const std::size_t shown = most > 0 ? most - 1 : 0;
    const std::size_t left = tooltip.notes.size() - shown;
    tooltip.notes.resize(shown);
    if (most > 0) {
        tooltip.notes.push_back({.title = countText(left) + " more", .amount = {}});
    }
    return tooltip;
}

} // namespace oakfen
