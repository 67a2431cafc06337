#include "Oakfen/Widgets/ImportReviewDialog.h"

#include <QFormLayout>
#include <QHeaderView>
#include <utility>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Components/RowTicker.h"
#include "Oakfen/Widgets/ImportReviewModel.h"
#include "Oakfen/Widgets/Theme.h"

namespace oakfen {

namespace {

constexpr QSize usualSize(820, 560);
const QList<int> usualColumnWidths{36, 104, 200, 170, 116, 92};

} // namespace

ImportReviewDialog::ImportReviewDialog(AppEnvironment& environment,
                                       std::shared_ptr<const ImportSession> session,
                                       QWidget* parent)
    : SheetScaffold(environment.panels, qt(ImportReviewView::heading(*session)), tr("Import"),
                    parent),
      view_(environment, std::move(session)),
      model_(new ImportReviewModel(environment, view_, this)),
      account_(new AccountPicker(tr("Into Account"))), table_(new LedgerTable) {
    resize(usualSize);
    setUpAccount(environment.store.index());
    setUpTable();
    showState();
    table_->setFocus();
}

void ImportReviewDialog::setUpAccount(const LibraryIndex& index) {
    std::vector<PickerRow> rows = accountPickerRows(index);
    const auto& proposed = view_.accountID();
    if (proposed) {
        // A statement may be for an account that was closed since.
        rows = keepingChoice(std::move(rows),
                             {.title = index.account(*proposed)->name, .id = proposed});
    }
    account_->setRows(rows);
    constexpr int usualNameLength = 36;
    account_->setMinimumContentsLength(usualNameLength);
    account_->choose(proposed);
    account_->setToolTip(tr("The account that the lines are added to"));
    account_->chosen = [this] {
        view_.setAccountID(account_->chosenID());
        model_->updateMarks();
        showState();
    };
    QFormLayout* form = addForm();
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    form->addRow(tr("Into Account"), account_);
}

void ImportReviewDialog::setUpTable() {
    table_->setAccessibleName(tr("Lines of the statement"));
    table_->setFrameShape(QFrame::StyledPanel);
    table_->setModel(model_);
    table_->setColumnWidths(QStringLiteral("ImportReview/Columns"), usualColumnWidths,
                            ImportReviewModel::Payee,
                            {{ImportReviewModel::Payee, 120}, {ImportReviewModel::Category, 90}});
    table_->setSearchColumn(ImportReviewModel::Payee);
    content()->addWidget(table_, 1);
    new RowTicker(*table_, ImportReviewModel::Included,
                  [this](const std::vector<int>& lines, bool isIncluded) {
                      model_->setIncluded(lines, isIncluded);
                  });
    model_->includedChanged = [this] { showState(); };
}

void ImportReviewDialog::showState() {
    setSubtitle(qt(view_.summary()));
    setCanSave(view_.canImport());
}

void ImportReviewDialog::save() {
    view_.importLines();
}

} // namespace oakfen
