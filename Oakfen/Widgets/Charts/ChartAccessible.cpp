#include "Oakfen/Widgets/Charts/ChartAccessible.h"

#include <QAccessibleActionInterface>
#include <QPointer>
#include <algorithm>

#include "Oakfen/Widgets/Charts/ChartWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

/// One value of the chart.
class ValueCell final : public QAccessibleInterface,
                        public QAccessibleTableCellInterface,
                        public QAccessibleActionInterface {
public:
    ValueCell(ChartWidget& chart, const ChartPoint& point) : chart_(&chart), point_(point) {}

    [[nodiscard]] bool isValid() const override {
        return chart_ != nullptr && chart_->table().contains(point_);
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override {
        return isValid() ? table()->window() : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* parent() const override { return table(); }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
        return -1;
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Cell; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (!isValid()) {
            return {};
        }
        const ChartTable& values = chart_->table();
        switch (kind) {
        case QAccessible::Name:
            return qt(values.spoken(point_));
        case QAccessible::Value:
            return qt(values.cell(point_));
        case QAccessible::Description:
            return values.notes.empty() ? QString() : qt(values.notes[point_.place]);
        default:
            return {};
        }
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    [[nodiscard]] QRect rect() const override {
        if (!isValid()) {
            return {};
        }
        const QRect place = chart_->placeOf(point_).toAlignedRect();
        return {chart_->mapToGlobal(place.topLeft()), place.size()};
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (isValid()) {
            state.readOnly = true;
            state.focusable = true;
            state.focused = chart_->hasFocus() && chart_->keyboardPoint() == point_;
            state.invisible = !chart_->isVisible();
        }
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableCellInterface) {
            return static_cast<QAccessibleTableCellInterface*>(this);
        }
        if (type == QAccessible::ActionInterface && isValid() && chart_->table().leadsOn) {
            return static_cast<QAccessibleActionInterface*>(this);
        }
        return nullptr;
    }

    [[nodiscard]] bool isSelected() const override { return false; }
    // The name tells place and series already.
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    [[nodiscard]] int columnIndex() const override { return static_cast<int>(point_.series); }
    [[nodiscard]] int rowIndex() const override { return static_cast<int>(point_.place); }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override {
        return QAccessible::queryAccessibleInterface(chart_);
    }

    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (isValid() && name == pressAction()) {
            chart_->activate(point_);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
        return {};
    }

private:
    QPointer<ChartWidget> chart_;
    ChartPoint point_;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* chart = qobject_cast<ChartWidget*>(object);
    return chart != nullptr ? new ChartAccessible(chart) : nullptr;
}

} // namespace

void ChartAccessible::install() {
    static const bool isKnown = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isKnown)
}

ChartAccessible::ChartAccessible(ChartWidget* chart)
    : QAccessibleWidget(chart, QAccessible::Table) {}

ChartAccessible::~ChartAccessible() {
    forgetCells();
}

ChartWidget& ChartAccessible::chart() const {
    return *static_cast<ChartWidget*>(widget());
}

void ChartAccessible::forgetCells() const {
    for (const QAccessible::Id cell : cells_) {
        if (cell != 0) {
            QAccessible::deleteAccessibleInterface(cell);
        }
    }
    cells_.clear();
}

void* ChartAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

int ChartAccessible::rowCount() const {
    return static_cast<int>(chart().table().rows.size());
}

int ChartAccessible::columnCount() const {
    return static_cast<int>(chart().table().columns.size());
}

int ChartAccessible::childCount() const {
    return rowCount() * columnCount();
}

QAccessibleInterface* ChartAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    const auto place = static_cast<std::size_t>(index);
    const std::size_t columns = chart().table().columns.size();
    if (columns != columns_) {
        forgetCells();
        columns_ = columns;
    }
    cells_.resize(std::max(cells_.size(), static_cast<std::size_t>(childCount())));
    if (cells_[place] == 0) {
        cells_[place] = QAccessible::registerAccessibleInterface(
            new ValueCell(chart(), {.place = place / columns, .series = place % columns}));
    }
    return QAccessible::accessibleInterface(cells_[place]);
}

int ChartAccessible::indexOfChild(const QAccessibleInterface* child) const {
    for (std::size_t index = 0; index < cells_.size(); ++index) {
        if (cells_[index] != 0 && QAccessible::accessibleInterface(cells_[index]) == child) {
            return static_cast<int>(index);
        }
    }
    return -1;
}

QAccessibleInterface* ChartAccessible::childAt(int x, int y) const {
    const auto point = chart().pointAt(chart().mapFromGlobal(QPointF(x, y)));
    return point ? cellAt(static_cast<int>(point->place), static_cast<int>(point->series))
                 : nullptr;
}

QAccessibleInterface* ChartAccessible::focusChild() const {
    const ChartPoint& point = chart().keyboardPoint();
    return chart().hasFocus()
               ? cellAt(static_cast<int>(point.place), static_cast<int>(point.series))
               : nullptr;
}

QAccessibleInterface* ChartAccessible::cellAt(int row, int column) const {
    const bool isInside = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return isInside ? child(row * columnCount() + column) : nullptr;
}

QString ChartAccessible::rowDescription(int row) const {
    return row >= 0 && row < rowCount() ? qt(chart().table().rows[static_cast<std::size_t>(row)])
                                        : QString();
}

QString ChartAccessible::columnDescription(int column) const {
    return column >= 0 && column < columnCount()
               ? qt(chart().table().columns[static_cast<std::size_t>(column)])
               : QString();
}

void ChartAccessible::modelChange(QAccessibleTableModelChangeEvent* /*event*/) {
    forgetCells();
}

} // namespace oakfen
