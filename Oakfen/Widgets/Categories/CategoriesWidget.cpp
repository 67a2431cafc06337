#include "Oakfen/Widgets/Categories/CategoriesWidget.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <utility>

#include "Oakfen/Widgets/Categories/CategoryDelegate.h"
#include "Oakfen/Widgets/Components/CommandMenu.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Components/SegmentedChoice.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int totalColumn = 2;

/// By their places among the words.
constexpr std::array kinds{CategoryKind::expense, CategoryKind::income};

} // namespace

CategoriesWidget::CategoriesWidget(AppEnvironment& environment, QWidget* parent)
    : Page(qt(title(SidebarItem::Kind::categories)), parent), view_(environment),
      kind_(new SegmentedChoice(tr("Kind"), {tr("Expenses"), tr("Income")})),
      model_(new TableModel(view_.content()->table, this)),
      delegate_(new CategoryDelegate(*model_, this)), table_(new LedgerTable),
      nothing_(new QLabel(tr("There are no categories of this kind."))) {
    setDetail(tr("Totals are year to date"));
    connect(addTool("plus", tr("New Category"), tr("Add a category of the kind that is shown")),
            &QToolButton::clicked, this, [this] { view_.newCategory(); });
    kind_->chosen = [this] { view_.setKind(kinds[static_cast<std::size_t>(kind_->choice())]); };
    column()->addWidget(kind_);

    auto* card = new QFrame;
    // What the theme draws the panel by.
    card->setObjectName(QStringLiteral("Card"));
    auto* inside = new QVBoxLayout(card);
    inside->setContentsMargins(1, Theme::grid / 2, 1, Theme::grid / 2);
    inside->setSpacing(0);
    inside->addWidget(table_);
    inside->addWidget(nothing_);
    nothing_->setContentsMargins(2 * Theme::grid - 1, 0, 0, 0);
    nothing_->setFixedHeight(Theme::tableRowHeight);
    Theme::setText(*nothing_, TextStyle::body, ThemeColor::secondaryText);
    column()->addWidget(card);
    column()->addStretch(1);

    setUpTable();
    showContent();
    changed_ = view_.changed.observe([this] { showContent(); });
}

CategoriesWidget::~CategoriesWidget() {
    // The table goes after our own members and must not tell us of its end.
    table_->selectionModel()->disconnect(this);
}

void CategoriesWidget::setUpTable() {
    table_->setTable(*model_, QStringLiteral("Categories/Columns"));
    table_->setItemDelegate(delegate_);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->horizontalHeader()->hide();
    table_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    table_->setMouseTracking(true);
    table_->installEventFilter(this);
    table_->viewport()->installEventFilter(this);
    connect(table_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& point) { openContextMenu(point); });
    connect(table_, &QAbstractItemView::entered, this,
            [this](const QModelIndex& index) { setHoveredRow(index.row()); });
    connect(table_, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == totalColumn) {
            view_.showEntries(model_->id(index.row()));
        }
    });
    connect(table_, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() != totalColumn) {
            view_.edit(model_->id(index.row()));
        }
    });
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { scrollToCurrent(); });
}

std::optional<UUID> CategoriesWidget::currentID() const {
    const QModelIndex current = table_->currentIndex();
    return current.isValid() ? std::optional(model_->id(current.row())) : std::nullopt;
}

std::optional<UUID> CategoriesWidget::addedSince(const CategoriesContent& earlier) const {
    if (content_->kind != earlier.kind ||
        content_->table->rowCount() != earlier.table->rowCount() + 1) {
        return std::nullopt;
    }
    std::optional<UUID> added;
    for (const CategoryRow* row : content_->table->rows()) {
        const bool wasThere = std::ranges::any_of(
            earlier.table->rows(), [&](const CategoryRow* each) { return each->id == row->id; });
        if (!wasThere) {
            added = row->id;
        }
    }
    return added;
}

void CategoriesWidget::showContent() {
    const auto earlier = std::exchange(content_, view_.content());
    const bool isOtherKind = earlier == nullptr || earlier->kind != content_->kind;
    const std::optional<UUID> current = isOtherKind ? std::nullopt : currentID();
    const int currentRow = isOtherKind ? -1 : table_->currentIndex().row();
    if (isOtherKind) {
        table_->setCurrentIndex({});
        table_->clearSelection();
        const auto place = std::ranges::find(kinds, content_->kind) - kinds.begin();
        kind_->choose(static_cast<int>(place));
        table_->setAccessibleName(place == 0 ? tr("Expense categories") : tr("Income categories"));
    }
    model_->show(content_->table);
    const bool isAny = model_->rowCount() > 0;
    table_->setFixedHeight(model_->rowCount() * Theme::tableRowHeight);
    table_->setVisible(isAny);
    nothing_->setVisible(!isAny);
    if (earlier != nullptr) {
        // What was just made, or brought back, is where the person goes on.
        const std::optional<UUID> added = addedSince(*earlier);
        goTo(added ? added : current);
        if (currentRow >= 0 && !table_->currentIndex().isValid()) {
            // Once the category has gone, whoever goes on by keyboard does so from its place.
            table_->setCurrentIndex(model_->index(std::min(currentRow, model_->rowCount() - 1), 0));
        }
    }
}

void CategoriesWidget::goTo(const std::optional<UUID>& id) {
    const int row = id ? model_->rowOf(*id) : -1;
    if (row >= 0 && id != currentID()) {
        table_->setCurrentIndex(model_->index(row, 0));
    }
}

void CategoriesWidget::scrollToCurrent() {
    const QModelIndex current = table_->currentIndex();
    if (!current.isValid()) {
        return;
    }
    // The page may not yet know how high the table has become.
    widget()->layout()->activate();
    const QPoint place = table_->viewport()->mapTo(
        widget(), table_->visualRect(current.siblingAtColumn(0)).center());
    ensureVisible(horizontalScrollBar()->value(), place.y(), 0, Theme::tableRowHeight);
}

void CategoriesWidget::turnPage(int direction) {
    if (model_->rowCount() == 0) {
        return;
    }
    const int rows = std::max(1, (viewport()->height() / Theme::tableRowHeight) - 1);
    const int row = std::max(0, table_->currentIndex().row()) + (direction * rows);
    table_->goTo(std::clamp(row, 0, model_->rowCount() - 1));
}

void CategoriesWidget::setHoveredRow(int row) {
    for (const int each : {delegate_->hoveredRow(), row}) {
        if (each >= 0) {
            table_->viewport()->update(0, table_->rowViewportPosition(each),
                                       table_->viewport()->width(), Theme::tableRowHeight);
        }
    }
    delegate_->setHoveredRow(row);
}

void CategoriesWidget::openContextMenu(const QPoint& point) {
    const std::optional<UUID> id = currentID();
    if (!id) {
        return;
    }
    const QModelIndex current = table_->currentIndex();
    const bool isThere = table_->indexAt(point).row() == current.row();
    const QPoint place = isThere ? point : table_->visualRect(current).bottomLeft();
    // It ends by itself, since its action may lead to a sheet or a panel.
    auto* menu = new CommandMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillMenu(*menu, view_.contextMenu(*id));
    menu->popup(table_->viewport()->mapToGlobal(place));
}

bool CategoriesWidget::handleKey(int key) {
    const std::optional<UUID> id = currentID();
    switch (key) {
    case Qt::Key_PageUp:
        turnPage(-1);
        return true;
    case Qt::Key_PageDown:
        turnPage(1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (id) {
            view_.edit(*id);
        }
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (id) {
            view_.requestDeletion(*id);
        }
        return true;
    case Qt::Key_Space:
        if (table_->isSearching()) {
            // The blank is part of the name that is being typed.
            return false;
        }
        if (id) {
            view_.showEntries(*id);
        }
        return true;
    default:
        return false;
    }
}

bool CategoriesWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && handleKey(key->key())) {
            return true;
        }
    }
    if (watched == table_->viewport() && event->type() == QEvent::Leave) {
        setHoveredRow(-1);
    }
    return Page::eventFilter(watched, event);
}

} // namespace oakfen
