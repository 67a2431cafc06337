#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "Oakfen/Views/Components/EmptyState.h"
#include "Oakfen/Views/EntryList.h"

class QMenu;
class QStackedLayout;

namespace oakfen {

class EmptyStateWidget;
class LedgerTable;
class TableModel;

/// Draws a view's list of entries and hands its input to the view: a click or Space turns the mark,
/// Return opens, Delete deletes, the header sorts. Where there is nothing to list, it says so in
/// the table's place.
class EntryTable final : public QWidget {
    Q_OBJECT

public:
    EntryTable(EntryList& list, std::shared_ptr<const TableContent> content,
               const QString& stateKey, QWidget* parent = nullptr);
    ~EntryTable() override;

    [[nodiscard]] LedgerTable* table() const { return table_; }

    /// Shows the table in its order; the current cell stays with its entry, and the place in the
    /// table where it is.
    void showTable(const std::shared_ptr<const TableContent>& content);
    void showSelection(SharedSelection selected);
    void showSortIndicator(std::string_view column, bool ascending);
    /// Shows this in the table's place, with buttons that `addButtons` adds; the table without it.
    void showEmptyState(const std::optional<EmptyState>& state,
                        const std::function<void(EmptyStateWidget&)>& addButtons);
    /// Makes the entry's row the current one and scrolls to it.
    void reveal(const UUID& id);
    /// Makes the first row the current one and scrolls to it.
    void beginAtTop();
    /// The context menu for these entries; the caller owns it.
    [[nodiscard]] std::unique_ptr<QMenu> makeContextMenu(const UUIDSet& ids);
    /// Moves the keyboard to the table, or to what stands in its place.
    void focusShown();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpTable(const QString& stateKey);
    void setUpHeader();
    /// Opens the menu of the selected entries, at the point where it is on one of them.
    void openContextMenu(const QPoint& point);
    /// Makes the entry's row the current one; without it, the row that is now at its place.
    void keepCurrent(const UUID& id, int row, int column);
    [[nodiscard]] bool isSelectionShown() const;
    /// Tells the view what the person has selected.
    void takeSelection();
    /// Puts the selected rows into the clipboard.
    void copySelection();
    bool handleTableKey(int key, Qt::KeyboardModifiers modifiers);
    void openSelection();
    void toggleSelection();
    void deleteSelection();
    [[nodiscard]] bool isMark(const QModelIndex& index) const;

    EntryList& list_;
    TableModel* model_;
    LedgerTable* table_;
    QStackedLayout* stack_;
    EmptyStateWidget* emptyState_ = nullptr;
    SharedSelection selection_ = std::make_shared<const UUIDSet>();
    std::string_view sortColumn_;
    bool isSortedUp_ = false;
    bool isShowing_ = false;
};

} // namespace oakfen
