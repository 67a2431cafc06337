#include "Oakfen/Widgets/Components/LedgerTable.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/LedgerDelegate.h"
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
    windowState::setValue(stateKey_, widths);
}

void LedgerTable::setColumnWidths(const QString& stateKey, const QList<int>& widths, int stretched,
                                  const QList<YieldingColumn>& yielding) {
    stateKey_ = stateKey;
    widths_ = widths;
    stretched_ = stretched;
    yielding_ = yielding;
    const QVariantList kept = windowState::value(stateKey).toList();
    for (qsizetype column = 0; column < widths_.size(); ++column) {
        if (kept.size() == widths_.size() && column != stretched) {
            widths_[column] =
                std::clamp(kept[column].toInt(), leastColumnWidth, greatestColumnWidth);
        }
        setColumnWidth(static_cast<int>(column), widths_[column]);
    }
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int /*before*/, int after) {
                if (!isFitting_ && column != stretched_) {
                    widths_[column] = after;
                    fitColumns(column);
                    saveTimer_.start();
                }
            });
    connect(model(), &QAbstractItemModel::modelReset, this, [this] { measureWholeTexts(); });
    connect(model(), &QAbstractItemModel::headerDataChanged, this, [this] { measureWholeTexts(); });
    measureWholeTexts();
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

void LedgerTable::measureWholeTexts() {
    const QList<int> before = leastWidths_;
    leastWidths_.clear();
    for (int column = 0; column < static_cast<int>(widths_.size()); ++column) {
        int least = leastColumnWidth;
        const QVariant texts =
            model()->headerData(column, Qt::Horizontal, TableModel::WholeTextsRole);
        for (const QString& text : texts.toStringList()) {
            const int width = static_cast<int>(std::ceil(figureWidth(font(), text)));
            least = std::max(least, width + (2 * LedgerDelegate::margin));
        }
        leastWidths_ << least;
    }
    if (leastWidths_ != before) {
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
        measureWholeTexts();
    }
}

QList<int> LedgerTable::fittedWidths(int dragged) const {
    QList<int> widths = widths_;
    for (qsizetype column = 0; column < widths.size(); ++column) {
        widths[column] = isColumnHidden(static_cast<int>(column))
                             ? 0
                             : std::max(widths[column], leastWidths_[column]);
    }
    int lack = std::accumulate(widths.begin(), widths.end(), -viewport()->width());
    if (lack < 0) {
        widths[stretched_] -= lack;
        return widths;
    }
    const auto spare = [&](const YieldingColumn& each) {
        const int least = std::max(each.least, leastWidths_[each.column]);
        return each.column == dragged ? 0 : std::max(0, widths[each.column] - least);
    };
    int spareOfAll = 0;
    for (const YieldingColumn& each : yielding_) {
        spareOfAll += spare(each);
    }
    lack = std::min(lack, spareOfAll);
    // Each gives its share of what is lacking; the last one gives what rounding has left.
    for (const YieldingColumn& each : yielding_) {
        if (const int own = spare(each); own > 0) {
            const int share = lack * own / spareOfAll;
            widths[each.column] -= share;
            lack -= share;
            spareOfAll -= own;
        }
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
