#pragma once

#include <memory>

#include "Oakfen/Views/Lines/LinesView.h"
#include "Oakfen/Widgets/Components/EntriesPanel.h"

class QLabel;
class QStackedLayout;

namespace oakfen {

class EmptyStateWidget;
class LedgerTable;
class MoneyLabel;
class TableModel;

/// Draws the lines that make up a figure, and hands its input to the view.
class LinesPanel final : public EntriesPanel {
    Q_OBJECT

public:
    LinesPanel(AppEnvironment& environment, const FigureLines& figure, QWidget* parent = nullptr);
    ~LinesPanel() override;

    [[nodiscard]] LinesView& view() { return view_; }
    [[nodiscard]] LedgerTable* table() const { return table_; }

protected:
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpHead();
    void setUpTable();
    [[nodiscard]] QWidget* makeFoot();
    void showContent();
    void showEmptyState();
    void openCurrent();
    void openContextMenu(const QPoint& point);
    void copySelection() const;
    /// What can be done with the row that the keyboard is on.
    [[nodiscard]] std::vector<MenuEntry> rowMenu();

    AppEnvironment& environment_;
    LinesView view_;
    std::shared_ptr<const LinesContent> content_;
    TableModel* model_;
    LedgerTable* table_;
    QWidget* body_;
    QStackedLayout* stack_;
    EmptyStateWidget* emptyState_ = nullptr;
    QLabel* count_;
    MoneyLabel* total_;
    Subscription changed_;
    /// Ends first: the menus ask the view for their lines as long as there is an offer.
    Subscription commands_;
};

} // namespace oakfen
