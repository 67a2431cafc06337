#pragma once

#include <QWidget>

#include "Oakfen/Views/RegisterView.h"

class QComboBox;
class QLineEdit;
class QMenu;
class QStackedLayout;
class QToolButton;

namespace oakfen {

class ElidedLabel;
class EmptyStateWidget;
class LedgerTable;
class RegisterFooterWidget;
class RegisterModel;
class RegisterSortButton;

/// Draws the register of one account and hands its input to the view.
class RegisterWidget final : public QWidget {
    Q_OBJECT

public:
    RegisterWidget(AppEnvironment& environment, const UUID& accountID, QWidget* parent = nullptr);
    ~RegisterWidget() override;

    [[nodiscard]] RegisterView& view() { return view_; }
    [[nodiscard]] LedgerTable* table() const { return table_; }
    [[nodiscard]] QLineEdit* searchField() const { return search_; }
    [[nodiscard]] RegisterSortButton* sortButton() const { return sort_; }
    /// The context menu for these entries; the caller owns it.
    [[nodiscard]] std::unique_ptr<QMenu> makeContextMenu(const UUIDSet& ids);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeHeader();
    void setUpFilterAndSearch();
    void addToolButtons(QLayout& row);
    QToolButton* addToolButton(QLayout& row, const QString& text, const char* symbolName,
                               const QString& tooltip, void (RegisterView::*action)());
    void setUpTable();
    /// Shows the view afresh; the selection and the place in the table stay.
    void refresh();
    void showEmptyState();
    /// Selects an entry that was saved just now and scrolls to it, if it is shown here.
    void reveal(const UUID& id);
    void restoreSelection(const std::optional<UUID>& current);
    void takeSelection();
    void showFooter();
    /// Puts the selected rows into the clipboard.
    void copySelection();
    bool handleTableKey(int key, Qt::KeyboardModifiers modifiers);
    void openSelection();
    void addActionsForOne(QMenu& menu, const RegisterContextMenu& content);
    void addCategories(QMenu& menu, const UUIDSet& ids);

    AppEnvironment& environment_;
    RegisterView view_;
    RegisterModel* model_;
    ElidedLabel* title_;
    ElidedLabel* subtitle_;
    QComboBox* filter_;
    QLineEdit* search_;
    RegisterSortButton* sort_;
    LedgerTable* table_;
    QStackedLayout* stack_;
    EmptyStateWidget* emptyState_ = nullptr;
    RegisterFooterWidget* footer_;
    bool isRefreshing_ = false;
    Subscription libraryChanged_;
    Subscription transactionSaved_;
};

} // namespace oakfen
