#pragma once

#include <functional>

#include "Oakfen/Views/Components.h"
#include "Oakfen/Views/ImportReviewView.h"
#include "Oakfen/Widgets/Components/LedgerModel.h"

namespace oakfen {

/// The lines of a statement with their ticks, for a table.
class ImportReviewModel final : public LedgerModel {
    Q_OBJECT

public:
    enum Column { Included, Day, Payee, Category, Amount, Mark, ColumnCount };

    ImportReviewModel(AppEnvironment& environment, ImportReviewView& view, QObject* parent);

    /// The duplicates may be others now.
    void updateMarks();
    /// Ticks the lines, or leaves them out.
    void setIncluded(const std::vector<int>& lines, bool isIncluded);

    /// Called after a tick was changed.
    std::function<void()> includedChanged = [] {};

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

protected:
    [[nodiscard]] Heading heading(int column) const override;
    [[nodiscard]] QStringList wholeTexts(int column) const override;

private:
    [[nodiscard]] QString text(std::size_t line, int column) const;
    [[nodiscard]] QString tickText(std::size_t line) const;
    /// What hovering over a line shows: its memo, and the entry that it repeats.
    [[nodiscard]] QString hint(std::size_t line) const;
    [[nodiscard]] TextTone tone(std::size_t line, int column) const;

    AppEnvironment& environment_;
    ImportReviewView& view_;
    Calendar calendar_;
};

} // namespace oakfen
