#pragma once

#include <QObject>
#include <functional>
#include <vector>

namespace oakfen {

class LedgerTable;

/// Lets the person tick a table's rows: with a click on a tick, or with the space bar, which gives
/// the selected rows the other state of the current one.
class RowTicker final : public QObject {
public:
    using Tick = std::function<void(const std::vector<int>& rows, bool isTicked)>;

    /// The ticks are the check states of that column; `tick` sets those of some rows.
    RowTicker(LedgerTable& table, int tickColumn, Tick tick);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isTicked(int row) const;
    void tickSelected();

    LedgerTable& table_;
    int column_;
    Tick tick_;
};

} // namespace oakfen
