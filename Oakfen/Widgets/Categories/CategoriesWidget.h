#pragma once

#include <optional>

#include "Oakfen/Views/Categories/CategoriesView.h"
#include "Oakfen/Widgets/Components/Page.h"

class QLabel;

namespace oakfen {

class CategoryDelegate;
class LedgerTable;
class SegmentedChoice;
class TableModel;

/// Draws the categories and hands their input to the view: Return edits, Delete asks, the space bar
/// or a click on a total shows its entries. The table is as high as its rows, and the page scrolls.
class CategoriesWidget final : public Page {
    Q_OBJECT

public:
    explicit CategoriesWidget(AppEnvironment& environment, QWidget* parent = nullptr);
    ~CategoriesWidget() override;

    [[nodiscard]] LedgerTable* table() const { return table_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpTable();
    void showContent();
    /// Which category has appeared among those that were shown; none where it wasn't just one.
    [[nodiscard]] std::optional<UUID> addedSince(const CategoriesContent& earlier) const;
    [[nodiscard]] std::optional<UUID> currentID() const;
    void goTo(const std::optional<UUID>& id);
    void scrollToCurrent();
    /// Moves by as many rows as the page shows.
    void turnPage(int direction);
    void setHoveredRow(int row);
    void openContextMenu(const QPoint& point);
    bool handleKey(int key);

    CategoriesView view_;
    std::shared_ptr<const CategoriesContent> content_;
    SegmentedChoice* kind_;
    TableModel* model_;
    CategoryDelegate* delegate_;
    LedgerTable* table_;
    QLabel* nothing_;
    Subscription changed_;
};

} // namespace oakfen
