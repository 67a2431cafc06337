#pragma once

#include <QWidget>

#include "Oakfen/Views/Register/RegisterView.h"

class QLineEdit;
class QMenu;
class QStackedLayout;

namespace oakfen {

class EmptyStateWidget;
class LedgerTable;
class RegisterFooterWidget;
class RegisterHeaderWidget;
class RegisterNoticeWidget;
class RegisterSortButton;
class TableModel;

/// Draws the register of one account and hands its input to the view.
class RegisterWidget final : public QWidget {
    Q_OBJECT

public:
    RegisterWidget(AppEnvironment& environment, const UUID& accountID, QWidget* parent = nullptr);
    ~RegisterWidget() override;

    [[nodiscard]] RegisterView& view() { return view_; }
    [[nodiscard]] LedgerTable* table() const { return table_; }
    [[nodiscard]] RegisterNoticeWidget* notice() const { return notice_; }
    [[nodiscard]] QLineEdit* searchField() const;
    [[nodiscard]] RegisterSortButton* sortButton() const;
    /// The context menu for these entries; the caller owns it.
    [[nodiscard]] std::unique_ptr<QMenu> makeContextMenu(const UUIDSet& ids);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpTable();
    void showContent();
    /// Shows the table in its order; the current cell stays with its entry, and the place in the
    /// table where it is.
    void showTable();
    /// Makes the entry's row the current one; without it, the row that is now at its place.
    void keepCurrent(const UUID& id, int row, int column);
    [[nodiscard]] bool isSelectionShown() const;
    void showSelection();
    void showSortIndicator();
    void showEmptyState();
    /// Makes the entry's row the current one and scrolls to it.
    void reveal(const UUID& id);
    /// Tells the view what the person has selected.
    void takeSelection();
    /// Puts the selected rows into the clipboard.
    void copySelection();
    bool handleTableKey(int key, Qt::KeyboardModifiers modifiers);
    void openSelection();
    [[nodiscard]] bool isMark(const QModelIndex& index) const;

    AppEnvironment& environment_;
    RegisterView view_;
    std::shared_ptr<const RegisterContent> content_;
    TableModel* model_;
    RegisterHeaderWidget* header_;
    RegisterNoticeWidget* notice_;
    LedgerTable* table_;
    QStackedLayout* stack_;
    EmptyStateWidget* emptyState_ = nullptr;
    RegisterFooterWidget* footer_;
    bool isShowing_ = false;
    Subscription changed_;
};

} // namespace oakfen
