#include "Oakfen/Widgets/Components/LedgerTable.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "Oakfen/Widgets/Theme.h"
#include "Oakfen/Widgets/WindowState.h"

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

void LedgerTable::setColumnWidths(const QString& stateKey, const QList<int>& widths,
                                  int stretched) {
    stateKey_ = stateKey;
    widths_ = widths;
    stretched_ = stretched;
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
                if (!isStretching_ && column != stretched_) {
                    widths_[column] = after;
                    stretchColumn();
                    saveTimer_.start();
                }
            });
    stretchColumn();
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

void LedgerTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    stretchColumn();
}

void LedgerTable::stretchColumn() {
    if (stretched_ < 0) {
        return;
    }
    int others = 0;
    for (int column = 0; column < static_cast<int>(widths_.size()); ++column) {
        others += column == stretched_ ? 0 : columnWidth(column);
    }
    isStretching_ = true;
    setColumnWidth(stretched_, std::max(widths_[stretched_], viewport()->width() - others));
    isStretching_ = false;
}

} // namespace oakfen
