#include "Oakfen/Widgets/Shell/SidebarWidget.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolButton>
#include <QTreeWidget>
#include <utility>

#include "Oakfen/Widgets/Components/CommandMenu.h"
#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Components/Panes.h"
#include "Oakfen/Widgets/Shell/SidebarDelegate.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "Oakfen/Widgets/Theme/WindowState.h"

Q_DECLARE_METATYPE(oakfen::SidebarItem)

namespace oakfen {

namespace {

const QString foldedGroupsKey = QStringLiteral("sidebar/foldedGroups");

std::optional<SidebarItem> sidebarItem(const QModelIndex& index) {
    const QVariant value = index.data(itemRole);
    return value.canConvert<SidebarItem>() ? std::optional(value.value<SidebarItem>())
                                           : std::nullopt;
}

QTreeWidgetItem* makeLine(SidebarLine kind, const std::string& title) {
    auto* line = new QTreeWidgetItem;
    line->setText(0, qt(title));
    line->setData(0, kindRole, static_cast<int>(kind));
    line->setData(0, Qt::AccessibleTextRole, qt(title));
    return line;
}

/// On one line, as long as it isn't very long: the toolkit would break even a short one.
QString oneLineToolTip(const QString& text) {
    constexpr qsizetype longestLine = 100;
    if (text.size() > longestLine) {
        return plainToolTip(text);
    }
    return QStringLiteral("<p style='white-space:nowrap'>") + text.toHtmlEscaped() +
           QStringLiteral("</p>");
}

void setFigure(QTreeWidgetItem& line, const SidebarContent::Figure& figure) {
    line.setData(0, figureRole, qt(figure.text));
    line.setData(0, compactRole, qt(figure.compact));
    line.setData(0, negativeRole, figure.isNegative);
}

/// What is heard at the line, and read in its tooltip.
void setSpoken(QTreeWidgetItem& line, const QString& text) {
    line.setData(0, Qt::AccessibleTextRole, text);
    line.setToolTip(0, oneLineToolTip(text));
}

QTreeWidgetItem* makeAccountLine(const SidebarContent::AccountRow& row) {
    QTreeWidgetItem* line = makeLine(SidebarLine::item, row.name);
    line->setData(0, itemRole, QVariant::fromValue(SidebarItem::account(row.id)));
    line->setData(0, symbolRole, qt(row.symbolName));
    setFigure(*line, row.balance);
    line->setData(0, detailRole, qt(row.detail.value_or("")));
    line->setData(0, dimmedRole, row.isClosed);
    QString spoken = qt(row.name) + QStringLiteral(", ") + qt(row.balance.text);
    if (row.isClosed) {
        spoken += QStringLiteral(", closed");
    }
    if (row.detail) {
        spoken += QStringLiteral(", ") + qt(*row.detail);
    }
    setSpoken(*line, spoken);
    return line;
}

} // namespace

SidebarWidget::SidebarWidget(AppEnvironment& environment, QWidget* parent)
    : QFrame(parent), environment_(environment), view_(environment) {
    setObjectName(QStringLiteral("Sidebar"));
    makePane(*this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    buildHeader();
    buildList();
    buildFooter();
    for (const QString& title : windowState::value(foldedGroupsKey).toStringList()) {
        collapsed_.insert(utf8(title));
    }
    changed_ = view_.changed.observe([this] { showContent(); });
    selectionChanged_ = environment.appState.selectionChanged.observe([this] {
        unfoldSelection();
        showSelection();
    });
    showContent();
}

void SidebarWidget::buildHeader() {
    auto* header = new QHBoxLayout;
    header->setContentsMargins(Theme::grid * 2, Theme::grid, Theme::grid, Theme::grid / 2);
    auto* title = new QLabel(QStringLiteral("Oakfen"), this);
    Theme::setText(*title, TextStyle::bodyStrong, ThemeColor::secondaryText);
    header->addWidget(title, 1);

    auto* add = new QToolButton(this);
    add->setObjectName(QStringLiteral("AddButton"));
    add->setIcon(symbolIcon("plus"));
    add->setText(QStringLiteral("Add"));
    add->setAccessibleName(QStringLiteral("Add"));
    add->setToolTip(QStringLiteral("Add an account, category or reminder"));
    add->setFocusPolicy(Qt::TabFocus);
    add->setPopupMode(QToolButton::InstantPopup);
    addMenu_ = new QMenu(add);
    connect(addMenu_, &QMenu::aboutToShow, this, [this] { fillMenu(*addMenu_, view_.addMenu()); });
    add->setMenu(addMenu_);
    header->addWidget(add);
    layout()->addItem(header);
}

void SidebarWidget::buildList() {
    list_ = new QTreeWidget(this);
    list_->setObjectName(QStringLiteral("SidebarList"));
    list_->setAccessibleName(QStringLiteral("Screens and accounts"));
    // Hidden, but told to screen readers.
    list_->setHeaderLabel(list_->accessibleName());
    list_->setHeaderHidden(true);
    list_->setRootIsDecorated(false);
    list_->setIndentation(0);
    list_->setMouseTracking(true);
    list_->setExpandsOnDoubleClick(false);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    list_->setItemDelegate(
        new SidebarDelegate([this](const QModelIndex& index) { return isSelected(index); }, list_));
    list_->installEventFilter(this);
    list_->viewport()->installEventFilter(this);
    connect(list_, &QTreeWidget::currentItemChanged, this, &SidebarWidget::selectCurrent);
    connect(list_, &QTreeWidget::itemClicked, this, [](QTreeWidgetItem* item) {
        if (item->childCount() > 0) {
            item->setExpanded(!item->isExpanded());
        }
    });
    connect(list_, &QTreeWidget::itemExpanded, this, &SidebarWidget::rememberFolding);
    connect(list_, &QTreeWidget::itemCollapsed, this, &SidebarWidget::rememberFolding);
    connect(list_, &QTreeWidget::customContextMenuRequested, this, &SidebarWidget::showContextMenu);
    layout()->addWidget(list_);
}

void SidebarWidget::buildFooter() {
    auto* footer = new QFrame(this);
    footer->setObjectName(QStringLiteral("SidebarFooter"));
    auto* column = new QVBoxLayout(footer);
    column->setContentsMargins(Theme::grid * 2, Theme::grid + 2, Theme::grid * 2, Theme::grid + 2);
    column->setSpacing(3);

    netWorth_ = new FigureLine(QStringLiteral("Net Worth"), TextStyle::body, TextStyle::bodyStrong,
                               ThemeColor::text, footer);
    assets_ = new FigureLine(QStringLiteral("Assets"), TextStyle::caption, TextStyle::caption,
                             ThemeColor::secondaryText, footer);
    liabilities_ = new FigureLine(QStringLiteral("Liabilities"), TextStyle::caption,
                                  TextStyle::caption, ThemeColor::secondaryText, footer);
    for (FigureLine* line : {netWorth_, assets_, liabilities_}) {
        column->addWidget(line);
    }
    layout()->addWidget(footer);
}

void SidebarWidget::showContent() {
    const auto earlier = std::exchange(content_, view_.content());
    showFooter();
    // The list loses its place when it is built again.
    if (earlier == nullptr || content_->overview != earlier->overview ||
        content_->sections != earlier->sections) {
        rebuildList();
        showSelection();
    }
}

void SidebarWidget::rebuildList() {
    const QScopedValueRollback building(isBuilding_, true);
    const int scroll = list_->verticalScrollBar()->value();
    list_->clear();
    addOverview();
    for (const SidebarContent::Section& section : content_->sections) {
        addSection(section);
    }
    list_->verticalScrollBar()->setValue(scroll);
}

void SidebarWidget::addOverview() {
    for (const SidebarContent::OverviewRow& row : content_->overview) {
        QTreeWidgetItem* line = makeLine(SidebarLine::item, row.title);
        line->setData(0, itemRole, QVariant::fromValue(row.item));
        line->setData(0, symbolRole, qt(row.symbolName));
        line->setData(0, badgeRole, row.badge);
        if (row.badge > 0) {
            line->setData(0, Qt::AccessibleTextRole,
                          qt(row.title + ", " + std::to_string(row.badge) + " due"));
        }
        list_->addTopLevelItem(line);
    }
}

void SidebarWidget::addSection(const SidebarContent::Section& section) {
    QTreeWidgetItem* group = makeLine(SidebarLine::group, section.title);
    group->setFlags(Qt::ItemIsEnabled);
    setFigure(*group, section.total);
    setSpoken(*group, qt(section.title + ", " + section.total.text));
    list_->addTopLevelItem(group);
    for (const SidebarContent::AccountRow& row : section.rows) {
        group->addChild(makeAccountLine(row));
    }
    group->setExpanded(!collapsed_.contains(section.title));
}

QTreeWidgetItem* SidebarWidget::selectedLine() const {
    for (QTreeWidgetItemIterator at(list_); *at != nullptr; ++at) {
        if (isSelected(list_->indexFromItem(*at))) {
            return *at;
        }
    }
    return nullptr;
}

void SidebarWidget::unfoldSelection() {
    const QTreeWidgetItem* line = selectedLine();
    if (line != nullptr && line->parent() != nullptr) {
        line->parent()->setExpanded(true);
    }
}

void SidebarWidget::showSelection() {
    const QScopedValueRollback building(isBuilding_, true);
    QTreeWidgetItem* line = selectedLine();
    if (line != nullptr && line->parent() != nullptr && !line->parent()->isExpanded()) {
        // The list would unfold the group that the person has folded.
        line = line->parent();
    }
    list_->setCurrentItem(line);
    list_->viewport()->update();
}

void SidebarWidget::showFooter() {
    const SidebarContent::Footer& footer = content_->footer;
    const auto show = [](FigureLine& line, const SidebarContent::Figure& figure, TextTone tone) {
        line.setFigure({qt(figure.text), qt(figure.compact)}, tone);
    };
    show(*netWorth_, footer.netWorth,
         footer.netWorth.isNegative ? TextTone::negative : TextTone::primary);
    show(*assets_, footer.assets, TextTone::secondary);
    show(*liabilities_, footer.liabilities, TextTone::secondary);
}

bool SidebarWidget::isSelected(const QModelIndex& index) const {
    const auto item = sidebarItem(index);
    return item && item == environment_.appState.selection();
}

void SidebarWidget::selectCurrent() {
    if (isBuilding_) {
        return;
    }
    // A group can have the focus without being a screen.
    if (const auto item = sidebarItem(list_->currentIndex())) {
        environment_.appState.setSelection(item);
    }
}

void SidebarWidget::rememberFolding(const QTreeWidgetItem* group) {
    if (isBuilding_) {
        return;
    }
    const std::string title = utf8(group->text(0));
    if (group->isExpanded()) {
        collapsed_.erase(title);
    } else {
        collapsed_.insert(title);
    }
    QStringList titles;
    for (const std::string& each : collapsed_) {
        titles.append(qt(each));
    }
    windowState::setValue(foldedGroupsKey, titles);
}

void SidebarWidget::focusInEvent(QFocusEvent* event) {
    // Not a proxy: Tab would come to the list before the button above it, and never to that.
    list_->setFocus(event->reason());
}

bool SidebarWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched == list_ && event->type() == QEvent::Resize) {
        // Names and amounts share a line or not, as the width is.
        list_->doItemsLayout();
    }
    if (watched == list_ && event->type() == QEvent::KeyPress) {
        return handleKey(static_cast<QKeyEvent*>(event)->key());
    }
    if (watched == list_ && event->type() == QEvent::ContextMenu &&
        list_->currentItem() == nullptr) {
        // Asked for by keyboard at no line, so of no account.
        return true;
    }
    if (watched == list_->viewport() && event->type() == QEvent::MouseButtonPress) {
        // The right button opens the menu of a line without going there.
        return static_cast<QMouseEvent*>(event)->button() == Qt::RightButton;
    }
    return QFrame::eventFilter(watched, event);
}

bool SidebarWidget::handleKey(int key) {
    QTreeWidgetItem* current = list_->currentItem();
    if (current == nullptr) {
        return false;
    }
    const bool isToggle = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    if (isToggle && current->childCount() > 0) {
        current->setExpanded(!current->isExpanded());
        return true;
    }
    if (key == Qt::Key_Menu) {
        showContextMenu(list_->visualItemRect(current).center());
        return true;
    }
    return false;
}

void SidebarWidget::showContextMenu(const QPoint& position) {
    const auto item = sidebarItem(list_->indexAt(position));
    if (!item || item->kind != SidebarItem::Kind::account) {
        return;
    }
    auto* menu = new CommandMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillMenu(*menu, view_.contextMenu(item->accountID));
    menu->popup(list_->viewport()->mapToGlobal(position));
}

} // namespace oakfen
