#include "Oakfen/Widgets/Budget/BudgetTableWidget.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "Oakfen/Widgets/Budget/BudgetDelegate.h"
#include "Oakfen/Widgets/Budget/BudgetField.h"
#include "Oakfen/Widgets/Components/CommandMenu.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int headerHeight = 32;
/// What a field with a long calculation in it may grow to.
constexpr int greatestFieldWidth = 260;

int columnNamed(std::string_view id) {
    const auto& columns = budgetColumns();
    const auto found = std::ranges::find(
        columns, id, [](const Column<BudgetRow>& column) { return column.head.id; });
    return static_cast<int>(found - columns.begin());
}

/// Whether an amount can begin so.
bool beginsAmount(const QString& text) {
    return text.size() == 1 &&
           (text.front().isDigit() || QStringLiteral("-+(.,=").contains(text.front()));
}

} // namespace

BudgetTableWidget::BudgetTableWidget(BudgetView& view, const QString& title,
                                     std::shared_ptr<const BudgetTable> table, QWidget* parent)
    : QWidget(parent), view_(view), content_(std::move(table)),
      model_(new TableModel(content_, this)), table_(new LedgerTable),
      delegate_(new BudgetDelegate([this](int row) { return lineAt(row); }, this)),
      field_(new BudgetField(table_->viewport())),
      empty_(new QLabel(tr("No activity this month."))) {
    table_->setAccessibleName(title);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(table_);
    column->addWidget(empty_);
    empty_->setContentsMargins(2 * Theme::grid - 1, 0, 2 * Theme::grid, 0);
    empty_->setFixedHeight(Theme::tableRowHeight);
    Theme::setText(*empty_, TextStyle::body, ThemeColor::secondaryText);
    setUpTable();
    setUpField();
    setUpSize();
}

BudgetTableWidget::~BudgetTableWidget() {
    // The table and the field go after our own members and must not tell us of their end.
    table_->removeEventFilter(this);
    table_->viewport()->removeEventFilter(this);
    table_->selectionModel()->disconnect(this);
    table_->horizontalHeader()->disconnect(this);
    field_->entered = [](bool) {};
    field_->widthChanged = [] {};
}

void BudgetTableWidget::setUpTable() {
    Theme::setTrait(*table_, "fillsCard");
    table_->setItemDelegate(delegate_);
    table_->setTable(*model_, QStringLiteral("Budget/Columns"));
    // The field in the cell is our own: it knows more keys, and keeps what can't be read.
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    model_->edited = [this](const UUID& id, std::size_t, const std::string& text) {
        view_.setBudgetText(id, text);
    };
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table_->setMouseTracking(true);
    table_->installEventFilter(this);
    table_->viewport()->installEventFilter(this);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    QHeaderView* header = table_->horizontalHeader();
    header->setFixedHeight(headerHeight);
    // Both tables keep the same widths, so that their figures line up.
    header->setSectionResizeMode(QHeaderView::Fixed);
    connect(header, &QHeaderView::sectionResized, this, [this] { placeField(); });
    connect(table_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& point) { openContextMenu(point); });
    connect(table_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == columnNamed("budget")) {
            edit(model_->id(index.row()));
        } else if (index.column() == columnNamed("actual")) {
            showEntriesAt(index.row());
        }
    });
    connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        if (table_->hasFocus()) {
            showCurrent();
        }
    });
}

void BudgetTableWidget::setUpField() {
    field_->hide();
    field_->stepped = [this](BudgetField::Step step) {
        using Step = BudgetField::Step;
        return this->step(step == Step::down || step == Step::next ? 1 : -1,
                          step == Step::next || step == Step::previous);
    };
    field_->entered = [this](bool hasLeft) {
        if (enter() && hasLeft) {
            endEdit();
        }
    };
    field_->cancelled = [this] { takeBack(); };
    field_->widthChanged = [this] { placeField(); };
}

void BudgetTableWidget::setUpSize() {
    const int rows = model_->rowCount();
    table_->setFixedHeight(headerHeight + (rows * Theme::tableRowHeight));
    table_->setFocusPolicy(rows > 0 ? Qt::StrongFocus : Qt::NoFocus);
    empty_->setVisible(rows == 0);
}

const BudgetLine* BudgetTableWidget::lineAt(int row) const {
    const auto place = static_cast<std::size_t>(row);
    return place < content_->rows().size() ? &content_->rows()[place]->line : nullptr;
}

QModelIndex BudgetTableWidget::budgetCell(int row) const {
    return model_->index(row, columnNamed("budget"));
}

std::optional<UUID> BudgetTableWidget::idAt(int row) const {
    const BudgetLine* line = row >= 0 ? lineAt(row) : nullptr;
    return line != nullptr ? std::optional(line->id) : std::nullopt;
}

void BudgetTableWidget::showTable(std::shared_ptr<const BudgetTable> table) {
    if (table == content_) {
        return;
    }
    content_ = std::move(table);
    setHovered({});
    model_->show(content_);
    setUpSize();
    followContent();
}

void BudgetTableWidget::followContent() {
    if (!editedID_) {
        return;
    }
    const BudgetLine* line = lineAt(model_->rowOf(*editedID_));
    if (line != nullptr && !field_->isModified() && field_->value() != line->budget) {
        field_->setValue(line->budget);
        field_->selectAll();
    }
    // What was typed into a line that is not shown now waits until it is shown again.
    field_->setVisible(line != nullptr);
    placeField();
}

bool BudgetTableWidget::editEnd(bool first) {
    const auto id = idAt(first ? 0 : model_->rowCount() - 1);
    return id && edit(*id);
}

bool BudgetTableWidget::edit(const UUID& id) {
    if (editedID_ && *editedID_ != id && !enter()) {
        field_->setFocus(Qt::OtherFocusReason);
        return true;
    }
    const int row = model_->rowOf(id);
    const BudgetLine* line = lineAt(row);
    if (line == nullptr) {
        return false;
    }
    if (editedID_ != id) {
        editedID_ = id;
        field_->setValue(line->budget);
        field_->setAccessibleName(tr("Budget of %1").arg(qt(singleLine(line->name))));
    }
    table_->selectionModel()->clearSelection();
    table_->selectionModel()->setCurrentIndex(budgetCell(row), QItemSelectionModel::NoUpdate);
    QStringList purpose;
    for (const BudgetHint& hint : view_.hints(id)) {
        purpose << qt(hint.caption + " " + hint.figure);
    }
    field_->setPurpose(purpose.join(QStringLiteral(", ")));
    field_->show();
    placeField();
    field_->setFocus(Qt::OtherFocusReason);
    field_->selectAll();
    // The same field at another line: nobody would hear of that else.
    QAccessibleEvent focused(field_, QAccessible::Focus);
    QAccessible::updateAccessibility(&focused);
    showCurrent();
    return true;
}

std::optional<UUID> BudgetTableWidget::idBeside(int row, int step) const {
    auto id = idAt(row += step);
    // In a document in which two categories share an id, the first line is where both are edited.
    while (id && model_->rowOf(*id) != row) {
        id = idAt(row += step);
    }
    return id;
}

bool BudgetTableWidget::step(int rows, bool isTab) {
    if (!editedID_) {
        return false;
    }
    // Before the line may go, for want of an amount.
    const auto next = idBeside(model_->rowOf(*editedID_), rows);
    if (!enter()) {
        field_->selectAll();
        return true;
    }
    if (next) {
        return edit(*next);
    }
    return isTab && passed(rows > 0);
}

bool BudgetTableWidget::enter() {
    if (!editedID_) {
        return true;
    }
    if (field_->text().trimmed().isEmpty()) {
        // As in a spreadsheet, nothing is planned where nothing stands.
        view_.setBudget(*editedID_, Decimal());
        return true;
    }
    if (!field_->isReadable()) {
        return false;
    }
    view_.setBudget(*editedID_, field_->value());
    return true;
}

void BudgetTableWidget::takeBack() {
    const auto id = std::exchange(editedID_, std::nullopt);
    table_->setFocus(Qt::OtherFocusReason);
    endEdit();
    if (id) {
        table_->goTo(model_->rowOf(*id));
    }
}

void BudgetTableWidget::endEdit() {
    editedID_.reset();
    delegate_->setEdited({}, {}, 0);
    field_->hide();
    table_->viewport()->update();
}

void BudgetTableWidget::placeField() {
    const int row = editedID_ ? model_->rowOf(*editedID_) : -1;
    if (row < 0) {
        return;
    }
    QRect place = BudgetDelegate::fieldPlace(table_->visualRect(budgetCell(row)));
    const int width = std::min(field_->neededWidth(), greatestFieldWidth);
    place.setLeft(std::min(place.left(), place.right() + 1 - width));
    field_->setGeometry(place);
    delegate_->setEdited(budgetCell(row), view_.hints(*editedID_), place.left());
    table_->viewport()->update();
}

void BudgetTableWidget::showCurrent() {
    const QRect row = table_->visualRect(table_->currentIndex());
    if (row.isValid()) {
        reached({table_->viewport()->mapTo(this, row.topLeft()), row.size()});
    }
}

bool BudgetTableWidget::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (watched == table_ && handleKey(static_cast<QKeyEvent&>(*event))) {
            return true;
        }
        break;
    case QEvent::FocusIn:
        if (watched == table_) {
            showCurrent();
        }
        break;
    case QEvent::MouseMove:
        if (watched == table_->viewport()) {
            setHovered(table_->indexAt(static_cast<QMouseEvent*>(event)->pos()));
        }
        break;
    case QEvent::Leave:
        if (watched == table_->viewport()) {
            setHovered({});
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

bool BudgetTableWidget::handleKey(QKeyEvent& event) {
    const auto id = idAt(table_->currentIndex().row());
    if (!id) {
        return false;
    }
    if (event.matches(QKeySequence::Copy)) {
        const std::array rows{static_cast<std::size_t>(table_->currentIndex().row())};
        QGuiApplication::clipboard()->setText(qt(clipboardText(*content_, rows)));
        return true;
    }
    if ((event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != Qt::NoModifier) {
        return false;
    }
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        edit(*id);
        return true;
    case Qt::Key_Delete:
        view_.setBudget(*id, Decimal());
        return true;
    case Qt::Key_Space:
        if (table_->isSearching()) {
            // The blank is part of the name that is being typed.
            return false;
        }
        showEntriesAt(table_->currentIndex().row());
        return true;
    default:
        break;
    }
    if (table_->isSearching() || !beginsAmount(event.text()) || !edit(*id)) {
        return false;
    }
    // In the place of what stands there.
    field_->insert(event.text());
    return true;
}

void BudgetTableWidget::showEntriesAt(int row) {
    const BudgetLine* line = lineAt(row);
    if (line != nullptr && !line->actual.isZero()) {
        // By value: what follows may replace the lines.
        view_.showEntries(UUID(line->id));
    }
}

void BudgetTableWidget::setHovered(const QModelIndex& index) {
    delegate_->setHovered(index);
    const BudgetLine* line = index.isValid() ? lineAt(index.row()) : nullptr;
    if (line != nullptr && index.column() == columnNamed("budget")) {
        table_->viewport()->setCursor(Qt::IBeamCursor);
    } else if (line != nullptr && index.column() == columnNamed("actual") &&
               !line->actual.isZero()) {
        table_->viewport()->setCursor(Qt::PointingHandCursor);
    } else {
        table_->viewport()->unsetCursor();
    }
    table_->viewport()->update();
}

void BudgetTableWidget::openContextMenu(const QPoint& point) {
    QModelIndex there = table_->indexAt(point);
    QPoint place = point;
    if (!there.isValid()) {
        // Asked for by keyboard.
        there = table_->currentIndex();
        place = table_->visualRect(there).bottomLeft();
    }
    const auto id = idAt(there.row());
    if (!id) {
        return;
    }
    // It ends by itself, since its action may lead to another screen, which ends this one.
    auto* menu = new CommandMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillMenu(*menu, view_.contextMenu(*id, [this, id] { edit(*id); }));
    menu->popup(table_->viewport()->mapToGlobal(place));
}

} // namespace oakfen
