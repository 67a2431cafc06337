#pragma once

#include <functional>
#include <vector>

#include "Oakfen/Views/Components.h"
#include "Oakfen/Views/ReconcileView.h"
#include "Oakfen/Widgets/Components/LedgerModel.h"

namespace oakfen {

/// The entries that a statement may show, with their ticks, for a table.
class ReconcileModel final : public LedgerModel {
    Q_OBJECT

public:
    enum Column { Ticked, Day, Payee, Amount, ColumnCount };

    ReconcileModel(AppEnvironment& environment, ReconcileView& view, QObject* parent);

    /// Takes the view's present rows.
    void reload();
    /// Ticks the rows, or takes their ticks away.
    void setChecked(const std::vector<int>& rows, bool isChecked);
    /// Ticks all rows.
    void markAll();

    /// Called after a tick was changed.
    std::function<void()> checkedChanged = [] {};

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

protected:
    [[nodiscard]] Heading heading(int column) const override;
    [[nodiscard]] QStringList wholeTexts(int column) const override;

private:
    [[nodiscard]] QString text(const Transaction& entry, int column) const;
    void updateTicks();

    AppEnvironment& environment_;
    ReconcileView& view_;
    Calendar calendar_;
    std::vector<const Transaction*> rows_;
};

} // namespace oakfen
