#pragma once

#include "Oakfen/Views/Import/ImportReviewView.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"

namespace oakfen {

class AccountPicker;
class CaptionedAmount;
class HintRow;
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
    [[nodiscard]] QPushButton* tickAllButton() const { return tickAll_; }
    [[nodiscard]] QPushButton* tickNoneButton() const { return tickNone_; }
    /// Tells of categories that the lines name and nobody has.
    [[nodiscard]] HintRow* note() const { return note_; }

protected:
    void save() override;
    /// Return takes an account and goes on: a wrong one is to be seen before anything is imported.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpAccount(const LibraryIndex& index);
    void setUpTable();
    void addFooter();
    void showContent();

    AppEnvironment& environment_;
    ImportReviewView view_;
    TableModel* model_;
    AccountPicker* account_;
    LedgerTable* table_;
    HintRow* note_;
    QPushButton* tickAll_;
    QPushButton* tickNone_;
    CaptionedAmount* moneyIn_;
    CaptionedAmount* moneyOut_;
    Subscription changed_;
};

} // namespace oakfen
