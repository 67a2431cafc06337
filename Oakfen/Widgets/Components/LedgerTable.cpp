#include "Oakfen/Widgets/Components/LedgerTable.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "Oakfen/Widgets/Components/LedgerHeader.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "Oakfen/Widgets/Theme/WindowState.h"

namespace oakfen {

namespace {

constexpr int leastColumnWidth = 28;
constexpr int greatestColumnWidth = 2000;
constexpr int saveDelay = 300;

} // namespace

LedgerTable::LedgerTable(QWidget* parent) : QTableView(parent) {
    setHorizontalHeader(new LedgerHeader(this));
    setItemDelegate(new LedgerDelegate(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setFrameShape(NoFrame);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(Theme::tableRowHeight);
    verticalHeader()->setDefaultSectionSize(Theme::tableRowHeight);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setTextElideMode(Qt::ElideRight);
    horizontalHeader()->setMinimumSectionSize(leastColumnWidth);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    verticalScrollBar()->setSingleStep(Theme::tableRowHeight);
    // A dragged header tells of every pixel; the file is written once it rests.
    saveTimer_.setSingleShot(true);
    saveTimer_.setInterval(saveDelay);
    connect(&saveTimer_, &QTimer::timeout, this, [this] { saveColumnWidths(); });
}

LedgerTable::~LedgerTable() {
    if (saveTimer_.isActive()) {
        saveColumnWidths();
    }
}

void LedgerTable::saveColumnWidths() const {
    QVariantList widths;
    for (const int width : widths_) {
        widths.append(width);
    }
    // At the end, since it used to be left out and its place was filled all the same.
    widths.append(isChosen(stretched_) ? widths_[stretched_] : 0);
    windowState::setValue(stateKey_, widths);
}

void LedgerTable::restoreColumnWidths() {
    const QVariantList kept = windowState::value(stateKey_).toList();
    const qsizetype count = widths_.size();
    if (kept.size() != count && kept.size() != count + 1) {
        return;
    }
    for (qsizetype column = 0; column < count; ++column) {
        const int width = column != stretched_ ? kept[column].toInt() : kept.value(count).toInt();
        if (column != stretched_ || width > 0) {
            widths_[column] = std::clamp(width, leastColumnWidth, greatestColumnWidth);
        }
    }
}

void LedgerTable::setColumnWidths(const QString& stateKey, const QList<int>& widths, int stretched,
                                  const QList<YieldingColumn>& yielding) {
    stateKey_ = stateKey;
    usualWidths_ = widths;
    widths_ = widths;
    stretched_ = stretched;
    yielding_ = yielding;
    restoreColumnWidths();
    for (qsizetype column = 0; column < widths_.size(); ++column) {
        setColumnWidth(static_cast<int>(column), widths_[column]);
    }
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int before, int after) { takeWidth(column, before, after); });
    connect(model(), &QAbstractItemModel::modelReset, this, [this] { measureColumns(); });
    connect(model(), &QAbstractItemModel::headerDataChanged, this, [this] { measureColumns(); });
    measureColumns();
}

void LedgerTable::setTable(TableModel& model, const QString& stateKey) {
    const TableContent& content = model.content();
    QList<int> widths;
    QList<YieldingColumn> yielding;
    int stretched = static_cast<int>(content.columnCount()) - 1;
    for (std::size_t each = 0; each < content.columnCount(); ++each) {
        const ColumnHead& head = content.head(each);
        const int column = static_cast<int>(each);
        widths << head.width;
        if (head.least) {
            yielding << YieldingColumn{column, *head.least};
        }
        if (head.stretches) {
            stretched = column;
        }
        if (head.isSearched) {
            setSearchColumn(column);
        }
        if (head.isEditable) {
            setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
        }
    }
    setModel(&model);
    setColumnWidths(stateKey, widths, stretched, yielding);
}

void LedgerTable::setColumnShown(int column, bool isShown) {
    if (isShown == !isColumnHidden(column)) {
        return;
    }
    isFitting_ = true;
    setColumnHidden(column, !isShown);
    isFitting_ = false;
    fitColumns();
}

void LedgerTable::measureColumns() {
    const QList<int> leastBefore = std::exchange(leastWidths_, {});
    const QList<bool> emptyBefore = std::exchange(areEmpty_, {});
    for (int column = 0; column < static_cast<int>(widths_.size()); ++column) {
        const auto header = [&](int role) {
            return model()->headerData(column, Qt::Horizontal, role);
        };
        int least = leastColumnWidth;
        for (const QString& text : header(TableModel::WholeTextsRole).toStringList()) {
            const int width = static_cast<int>(std::ceil(figureWidth(font(), text)));
            least = std::max(least, width + (2 * LedgerDelegate::margin));
        }
        leastWidths_ << least;
        areEmpty_ << header(TableModel::EmptyRole).toBool();
    }
    if (leastWidths_ != leastBefore || areEmpty_ != emptyBefore) {
        fitColumns();
    }
}

bool LedgerTable::isSearching() const {
    return sinceTyped_.isValid() && !sinceTyped_.hasExpired(QApplication::keyboardInputInterval());
}

void LedgerTable::keyboardSearch(const QString& text) {
    if (searchColumn_ >= 0 && model() != nullptr && model()->rowCount() > 0) {
        // The search begins after the current cell and goes on in its column. Without one it is to
        // begin with the first row, which comes after the last.
        const QModelIndex current = currentIndex();
        const int row = current.isValid() ? current.row() : model()->rowCount() - 1;
        selectionModel()->setCurrentIndex(model()->index(row, searchColumn_),
                                          QItemSelectionModel::NoUpdate);
    }
    QTableView::keyboardSearch(text);
    sinceTyped_.start();
}

void LedgerTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (model() == nullptr) {
        return;
    }
    QPainter painter(viewport());
    QColor line = Theme::color(ThemeColor::border);
    line.setAlphaF(0.55F);
    painter.setPen(line);
    const int right =
        std::min(horizontalHeader()->length() - horizontalHeader()->offset(), viewport()->width());
    for (int row = std::max(rowAt(0), 0); row < model()->rowCount(); ++row) {
        const int bottom = rowViewportPosition(row) + rowHeight(row) - 1;
        if (bottom > viewport()->height()) {
            break;
        }
        painter.drawLine(0, bottom, right, bottom);
    }
    paintDivider(painter, right);
    const QModelIndex current = currentIndex();
    if (hasFocus() && current.isValid()) {
        painter.setPen(Theme::color(ThemeColor::accent));
        const int top = rowViewportPosition(current.row());
        painter.drawRect(0, top, right - 1, rowHeight(current.row()) - 1);
    }
}

void LedgerTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    // The ring goes round the whole row; the toolkit paints a cell of it only.
    for (const QModelIndex& index : {current, previous}) {
        if (index.isValid()) {
            viewport()->update(0, rowViewportPosition(index.row()), viewport()->width(),
                               rowHeight(index.row()));
        }
    }
}

void LedgerTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    fitColumns();
}

void LedgerTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange && !leastWidths_.isEmpty()) {
        measureColumns();
    }
}

void LedgerTable::takeWidth(int column, int before, int after) {
    if (isFitting_) {
        return;
    }
    const int next = column + 1;
    if (column == stretched_ && next < widths_.size()) {
        // It would take back at once what it gives away; so its edge moves the next column's.
        int least = leastWidths_[next];
        for (const YieldingColumn& each : yielding_) {
            least = each.column == next ? std::max(least, each.least) : least;
        }
        widths_[next] = std::max(least, columnWidth(next) - (after - before));
    }
    widths_[column] = after;
    fitColumns(column);
    if (column == stretched_) {
        // There may have been no room for all of it.
        widths_[column] = columnWidth(column);
    }
    saveTimer_.start();
}

int LedgerTable::narrow(QList<int>& widths, const QList<YieldingColumn>& columns, int lack) const {
    const auto spare = [&](const YieldingColumn& each) {
        return std::max(0, widths[each.column] - std::max(each.least, leastWidths_[each.column]));
    };
    int spareOfAll = 0;
    for (const YieldingColumn& each : columns) {
        spareOfAll += spare(each);
    }
    int rest = std::min(std::max(lack, 0), spareOfAll);
    lack -= rest;
    // Each gives its share of what is lacking; the last one gives what rounding has left.
    for (const YieldingColumn& each : columns) {
        if (const int own = spare(each); own > 0) {
            const int share = rest * own / spareOfAll;
            widths[each.column] -= share;
            rest -= share;
            spareOfAll -= own;
        }
    }
    return lack;
}

QList<int> LedgerTable::fittedWidths(int dragged) const {
    QList<int> widths = widths_;
    QList<YieldingColumn> empty;
    for (int column = 0; column < static_cast<int>(widths.size()); ++column) {
        if (isColumnHidden(column)) {
            widths[column] = 0;
            continue;
        }
        widths[column] = std::max(widths[column], leastWidths_[column]);
        if (areEmpty_[column] && column != dragged && !isChosen(column)) {
            empty << YieldingColumn{column, leastColumnWidth};
        }
    }
    QList<YieldingColumn> usual;
    QList<YieldingColumn> chosen;
    for (const YieldingColumn& each : yielding_) {
        if (each.column != dragged) {
            (isChosen(each.column) ? chosen : usual) << each;
        }
    }
    int lack = std::accumulate(widths.begin(), widths.end(), -viewport()->width());
    for (const QList<YieldingColumn>& columns : {empty, usual, chosen}) {
        lack = narrow(widths, columns, lack);
    }
    if (lack < 0) {
        widths[stretched_] -= lack;
    } else if (dragged == stretched_) {
        // There is no more room to be had.
        widths[stretched_] = std::max(leastWidths_[stretched_], widths[stretched_] - lack);
    }
    return widths;
}

void LedgerTable::fitColumns(int dragged) {
    if (leastWidths_.isEmpty()) {
        return;
    }
    const QList<int> widths = fittedWidths(dragged);
    isFitting_ = true;
    for (int column = 0; column < static_cast<int>(widths.size()); ++column) {
        if (!isColumnHidden(column)) {
            setColumnWidth(column, widths[column]);
        }
    }
    isFitting_ = false;
}

} // namespace oakfen
