#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Components/PickerMatches.h"

namespace oakfen {

/// The sheet that files several entries under one category: the categories that were chosen last,
/// then all of them, narrowed down by what is typed.
class SetCategoryView {
public:
    SetCategoryView(AppEnvironment& environment, std::shared_ptr<const UUIDSet> ids);

    /// "Categorize 5 Transactions": those that can have a category.
    [[nodiscard]] std::string title() const;
    /// What becomes of splits and transfers among them; empty where there are none.
    [[nodiscard]] std::string subtitle() const;

    void setTypedText(std::string text);
    [[nodiscard]] const std::vector<PickerLine>& lines() const { return lines_; }
    /// The row that the typed text means; none while nothing is typed.
    [[nodiscard]] std::optional<std::size_t> meantRow() const;
    /// Why a text that means nothing can't be taken.
    [[nodiscard]] std::string explanation() const;

    /// Files the entries under what the line says, and makes that if need be, in one step.
    void choose(const PickerLine& line);

private:
    /// The number of entries of each sort.
    struct Counts {
        std::size_t entries = 0;
        std::size_t splits = 0;
        std::size_t transfers = 0;
        /// Whether they bring in more money than they take out, all together.
        bool isIncome = false;
    };

    [[nodiscard]] Counts count() const;
    [[nodiscard]] std::vector<PickerRow> allRows() const;
    void file(const std::optional<UUID>& categoryID, const std::string& newPath);

    AppEnvironment& environment_;
    std::shared_ptr<const UUIDSet> ids_;
    Counts counts_;
    std::string typed_;
    CategoryOffer offer_;
    std::vector<PickerRow> rows_;
    std::vector<PickerLine> lines_;
};

} // namespace oakfen
