#pragma once

#include "Oakfen/Views/Import/ImportReviewView.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"

namespace oakfen {

class AccountPicker;
class LedgerTable;
class TableModel;

/// Draws the review of a statement's lines.
class ImportReviewDialog final : public SheetScaffold {
    Q_OBJECT

public:
    ImportReviewDialog(AppEnvironment& environment, std::shared_ptr<const ImportSession> session,
                       QWidget* parent = nullptr);

    [[nodiscard]] ImportReviewView& view() { return view_; }
    [[nodiscard]] LedgerTable* table() const { return table_; }
    [[nodiscard]] AccountPicker* accountPicker() const { return account_; }

protected:
    void save() override;

private:
    void setUpAccount(const LibraryIndex& index);
    void setUpTable();
    void showContent();

    ImportReviewView view_;
    TableModel* model_;
    AccountPicker* account_;
    LedgerTable* table_;
    Subscription changed_;
};

} // namespace oakfen
