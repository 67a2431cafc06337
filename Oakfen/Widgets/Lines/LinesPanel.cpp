#include "Oakfen/Widgets/Lines/LinesPanel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QStackedLayout>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "Oakfen/ScreenCommands.h"
#include "Oakfen/Widgets/Components/ElidedLabel.h"
#include "Oakfen/Widgets/Components/EmptyStateWidget.h"
#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

constexpr int greatestPanelWidth = 720;

/// The strip beneath the list, in the raised colour.
class Foot final : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), Theme::color(ThemeColor::surfaceRaised));
        painter.setPen(Theme::color(ThemeColor::border));
        painter.drawLine(0, 0, width(), 0);
    }
};

} // namespace

LinesPanel::LinesPanel(AppEnvironment& environment, const FigureLines& figure, QWidget* parent)
    : EntriesPanel(qt(figure.title), greatestPanelWidth, parent), environment_(environment),
      view_(environment, figure), content_(view_.content()),
      model_(new TableModel(content_->table, this)), table_(new LedgerTable), body_(new QWidget),
      stack_(new QStackedLayout(body_)), count_(new QLabel),
      total_(new MoneyLabel(TextStyle::bodyStrong)) {
    setUpHead();
    setUpTable();
    stack_->addWidget(table_);
    setBody(*body_, *makeFoot());
    setTabOrder(table_, table_->horizontalHeader());
    setTabOrder(table_->horizontalHeader(), closeButton());
    commands_ = environment_.screenCommands.offer(
        {.forOrder = [this] { return view_.sortMenu(); }, .forRows = [this] { return rowMenu(); }});
    changed_ = view_.changed.observe([this] { showContent(); });
    showContent();
    if (model_->rowCount() > 0) {
        table_->selectRow(0);
    }
}

LinesPanel::~LinesPanel() {
    // The table goes after our own members and must not tell us of its end.
    table_->selectionModel()->disconnect(this);
}

void LinesPanel::setUpHead() {
    setAccessibleDescription(qt(view_.figure().detail));
    auto* detail = new ElidedLabel(TextStyle::caption, ThemeColor::secondaryText);
    detail->showText(qt(view_.figure().detail));
    head()->setSpacing(0);
    head()->addWidget(detail);
}

void LinesPanel::setUpTable() {
    table_->setAccessibleName(tr("Entries"));
    table_->setTable(*model_, QStringLiteral("Lines/Columns"));
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    table_->installEventFilter(this);
    QHeaderView* header = table_->horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setFocusPolicy(Qt::TabFocus);
    header->setAccessibleName(tr("Sort by"));
    connect(header, &QHeaderView::sectionClicked, this, [this](int column) {
        view_.sortBy(model_->content().head(static_cast<std::size_t>(column)).id);
        showContent();
    });
    connect(table_, &QTableView::doubleClicked, this, [this] { openCurrent(); });
    connect(table_, &QTableView::customContextMenuRequested, this, &LinesPanel::openContextMenu);
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { environment_.screenCommands.changed.notify(); });
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(Qt::CTRL | key, table_);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, [this] {
            if (const std::vector<MenuEntry> menu = rowMenu(); !menu.empty()) {
                menu.back().perform();
            }
        });
    }
}

QWidget* LinesPanel::makeFoot() {
    auto* foot = new Foot;
    auto* line = new QHBoxLayout(foot);
    // Under the columns, which keep that much room at their sides.
    line->setContentsMargins(LedgerDelegate::margin, Theme::grid, LedgerDelegate::margin,
                             Theme::grid);
    line->setSpacing(Theme::grid);
    for (QLabel* label : {count_, new QLabel(tr("Total"))}) {
        label->setTextFormat(Qt::PlainText);
        Theme::setText(*label, TextStyle::body, ThemeColor::secondaryText);
        line->addWidget(label);
    }
    line->insertStretch(1);
    line->addWidget(total_);
    return foot;
}

void LinesPanel::showContent() {
    content_ = view_.content();
    const QModelIndex current = table_->currentIndex();
    const auto currentID =
        current.isValid() ? std::optional(model_->id(current.row())) : std::nullopt;
    const int row = current.row();
    model_->show(content_->table);
    const int place = currentID ? model_->rowOf(*currentID) : -1;
    if (currentID && model_->rowCount() > 0 && (place < 0 || !table_->currentIndex().isValid())) {
        // From an entry that has gone, whoever goes on by keyboard does so at its place.
        table_->goTo(place >= 0 ? place : std::min(row, model_->rowCount() - 1));
    }
    const auto column = columnNamed(*content_->table, content_->sort.column);
    if (column) {
        table_->horizontalHeader()->setSortIndicator(
            static_cast<int>(*column),
            content_->sort.ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
    count_->setText(qt(content_->count));
    total_->setMoney(content_->total);
    total_->setAccessibleName(tr("Total") + QStringLiteral(", ") + qt(content_->total.text));
    showEmptyState();
    environment_.screenCommands.changed.notify();
}

void LinesPanel::showEmptyState() {
    const auto state = content_->emptyState();
    if (!state) {
        stack_->setCurrentWidget(table_);
        return;
    }
    if (emptyState_ == nullptr) {
        emptyState_ = new EmptyStateWidget(*state);
        stack_->addWidget(emptyState_);
    }
    stack_->setCurrentWidget(emptyState_);
}

void LinesPanel::focusInEvent(QFocusEvent* /*event*/) {
    QWidget* first = model_->rowCount() > 0 ? static_cast<QWidget*>(table_) : closeButton();
    first->setFocus(Qt::OtherFocusReason);
}

bool LinesPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool isPlain = (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        if (isPlain && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
            openCurrent();
            return true;
        }
        if (key->matches(QKeySequence::Copy)) {
            copySelection();
            return true;
        }
    }
    return EntriesPanel::eventFilter(watched, event);
}

void LinesPanel::openCurrent() {
    if (const int row = table_->targetRow(); row >= 0) {
        view_.editEntry(static_cast<std::size_t>(row));
    }
}

std::vector<MenuEntry> LinesPanel::rowMenu() {
    const int row = table_->targetRow();
    return row >= 0 ? view_.rowMenu(static_cast<std::size_t>(row)) : std::vector<MenuEntry>();
}

void LinesPanel::openContextMenu(const QPoint& point) {
    const std::vector<MenuEntry> entries = rowMenu();
    if (entries.empty()) {
        return;
    }
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillMenu(*menu, entries);
    menu->popup(table_->viewport()->mapToGlobal(point));
}

void LinesPanel::copySelection() const {
    std::vector<std::size_t> rows;
    for (const QModelIndex& index : table_->selectionModel()->selectedRows()) {
        rows.push_back(static_cast<std::size_t>(index.row()));
    }
    std::ranges::sort(rows);
    if (!rows.empty()) {
        QGuiApplication::clipboard()->setText(qt(view_.copiedText(rows)));
    }
}

} // namespace oakfen
