#include "Oakfen/Widgets/Import/ImportReviewDialog.h"

#include <QFormLayout>
#include <QHeaderView>
#include <utility>

#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Components/RowTicker.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr QSize usualSize(820, 560);

} // namespace

ImportReviewDialog::ImportReviewDialog(AppEnvironment& environment,
                                       std::shared_ptr<const ImportSession> session,
                                       QWidget* parent)
    : SheetScaffold(environment.panels, qt(ImportReviewView::heading(*session)), tr("Import"),
                    parent),
      view_(environment, std::move(session)), model_(new TableModel(view_.content()->table, this)),
      account_(new AccountPicker(tr("Into Account"))), table_(new LedgerTable) {
    resize(usualSize);
    setUpAccount(environment.store.index());
    setUpTable();
    changed_ = view_.changed.observe([this] { showContent(); });
    showContent();
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
    account_->chosen = [this] { view_.setAccountID(account_->chosenID()); };
    QFormLayout* form = addForm();
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    form->addRow(tr("Into Account"), account_);
}

void ImportReviewDialog::setUpTable() {
    table_->setAccessibleName(tr("Lines of the statement"));
    table_->setFrameShape(QFrame::StyledPanel);
    table_->setTable(*model_, QStringLiteral("ImportReview/Columns"));
    content()->addWidget(table_, 1);
    new RowTicker(*table_, *model_, [this](const std::vector<UUID>& lines, bool isIncluded) {
        view_.setIncluded(lines, isIncluded);
    });
}

void ImportReviewDialog::showContent() {
    const auto shown = view_.content();
    model_->show(shown->table);
    setSubtitle(qt(shown->summary));
    setCanSave(shown->canImport);
}

void ImportReviewDialog::save() {
    view_.importLines();
}

} // namespace oakfen
