#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "OakfenCore/Support/Values/UUID.h"

namespace oakfen {

class LedgerTable;
class TableModel;

/// Lets the person tick a table's rows: with a click on a tick, or with the space bar, which gives
/// the selected rows the other state of the current one, or of the first where it isn't selected.
/// Return does so too where it is asked to, since a sheet's default button would be pressed else.
class RowTicker final : public QObject {
public:
    using Tick = std::function<void(const std::vector<UUID>& ids, bool isTicked)>;

    /// `table` shows `model`, whose first column holds the ticks; `tick` sets those of some rows.
    RowTicker(LedgerTable& table, const TableModel& model, Tick tick);

    void setTicksWithReturn() { ticksWithReturn_ = true; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isTickKey(int key) const;
    [[nodiscard]] bool isTicked(int row) const;
    void tickSelected();

    LedgerTable& table_;
    const TableModel& model_;
    Tick tick_;
    bool ticksWithReturn_ = false;
};

} // namespace oakfen
