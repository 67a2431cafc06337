#pragma once

#include <QWidget>

#include "Oakfen/Views/RegisterView.h"

class QLineEdit;
class QMenu;
class QStackedLayout;

namespace oakfen {

class EmptyStateWidget;
class LedgerTable;
class RegisterFooterWidget;
class RegisterHeaderWidget;
class RegisterModel;
class RegisterNoticeWidget;
class RegisterSortButton;

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
    /// Shows the view afresh; the selection and the place in the table stay.
    void refresh();
    void showEmptyState();
    /// Selects an entry that was saved just now and scrolls to it, if it is shown here.
    void reveal(const UUID& id);
    /// Ends filter and search for the saved entries that they hide.
    void showHidden();
    /// Selects what the view has selected, and scrolls to that entry.
    void scrollTo(const UUID& id);
    void restoreSelection(const std::optional<UUID>& current, int column);
    void takeSelection();
    void showFooter();
    /// Puts the selected rows into the clipboard.
    void copySelection();
    bool handleTableKey(int key, Qt::KeyboardModifiers modifiers);
    void openSelection();

    AppEnvironment& environment_;
    RegisterView view_;
    RegisterModel* model_;
    RegisterHeaderWidget* header_;
    RegisterNoticeWidget* notice_;
    LedgerTable* table_;
    QStackedLayout* stack_;
    EmptyStateWidget* emptyState_ = nullptr;
    RegisterFooterWidget* footer_;
    bool isRefreshing_ = false;
    Subscription libraryChanged_;
    Subscription transactionSaved_;
};

} // namespace oakfen
