#pragma once

#include <QFrame>
#include <set>
#include <vector>

#include "Oakfen/Views/Shell/SidebarView.h"
#include "Oakfen/Widgets/Components/FigureLine.h"
#include "OakfenCore/Support/Values/Observers.h"

class QMenu;
class QModelIndex;
class QTreeWidget;
class QTreeWidgetItem;

namespace oakfen {

/// Draws the left column.
class SidebarWidget final : public QFrame {
    Q_OBJECT

public:
    SidebarWidget(AppEnvironment& environment, QWidget* parent = nullptr);

protected:
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildHeader();
    void buildList();
    void buildFooter();

    void showContent();
    void rebuildList();
    /// The line of what the main screen shows; null for none.
    [[nodiscard]] QTreeWidgetItem* selectedLine() const;
    void unfoldSelection();
    void showSelection();
    void showFooter();

    void addOverview();
    void addSection(const SidebarContent::Section& section);
    void selectCurrent();
    void rememberFolding(const QTreeWidgetItem* group);
    bool handleKey(int key);
    void showContextMenu(const QPoint& position);
    [[nodiscard]] bool isSelected(const QModelIndex& index) const;

    AppEnvironment& environment_;
    SidebarView view_;
    QTreeWidget* list_ = nullptr;
    QMenu* addMenu_ = nullptr;
    FigureLine* netWorth_ = nullptr;
    FigureLine* assets_ = nullptr;
    FigureLine* liabilities_ = nullptr;

    std::shared_ptr<const SidebarContent> content_;
    /// Titles of the groups that are folded, those without an account at present included.
    std::set<std::string> collapsed_;
    /// While the list is being built its notices mean nothing.
    bool isBuilding_ = false;
    Subscription changed_;
    Subscription selectionChanged_;
};

} // namespace oakfen
