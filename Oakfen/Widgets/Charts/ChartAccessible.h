#pragma once

#include <QAccessibleTableInterface>
#include <QAccessibleWidget>
#include <vector>

#include "Oakfen/Views/Charts/ChartTable.h"

namespace oakfen {

class ChartWidget;

/// A chart as screen readers meet it: a table of its values, each of which can be activated where
/// the chart leads on.
class ChartAccessible final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    /// Makes this what the toolkit asks about charts.
    static void install();

    explicit ChartAccessible(ChartWidget* chart);
    ~ChartAccessible() override;

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
    [[nodiscard]] QString rowDescription(int row) const override;
    [[nodiscard]] QString columnDescription(int column) const override;
    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] int columnCount() const override;
    // Nothing can be selected.
    [[nodiscard]] int selectedCellCount() const override { return 0; }
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override { return 0; }
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override { return {}; }
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override { return {}; }
    [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
    [[nodiscard]] bool isRowSelected(int /*row*/) const override { return false; }
    bool selectRow(int /*row*/) override { return false; }
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    [[nodiscard]] ChartWidget& chart() const;
    void forgetCells() const;

    /// The cells that were asked for, row by row, and how many there are in a row; 0 for the
    /// others.
    mutable std::vector<QAccessible::Id> cells_;
    mutable std::size_t columns_ = 0;
};

} // namespace oakfen
