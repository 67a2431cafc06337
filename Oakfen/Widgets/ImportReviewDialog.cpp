#include "Oakfen/Widgets/ImportReviewDialog.h"

#include <QFormLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
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
    : SheetScaffold(environment.panels, tr("Import %1").arg(qt(singleLine(session->fileName))),
                    tr("Import"), parent),
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
    const bool isListed = std::ranges::any_of(
        rows, [&](const PickerRow& row) { return !row.isHeader && row.id == proposed; });
    if (proposed && !isListed) {
        // A statement may be for an account that was closed since.
        rows.push_back({.title = index.account(*proposed)->name, .id = proposed});
    }
    account_->setRows(rows);
    account_->setPlaceholderText(tr("Choose an account"));
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
                            ImportReviewModel::Payee);
    table_->installEventFilter(this);
    content()->addWidget(table_, 1);
    connect(table_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == ImportReviewModel::Included) {
            const bool isIncluded = view_.isIncluded(static_cast<std::size_t>(index.row()));
            model_->setIncluded({index.row()}, !isIncluded);
        }
    });
    model_->includedChanged = [this] { showState(); };
}

bool ImportReviewDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        toggleSelected();
        return true;
    }
    return SheetScaffold::eventFilter(watched, event);
}

void ImportReviewDialog::toggleSelected() {
    const QModelIndex current = table_->currentIndex();
    if (!current.isValid()) {
        return;
    }
    std::vector<int> lines{current.row()};
    for (const QModelIndex& index : table_->selectionModel()->selectedRows()) {
        lines.push_back(index.row());
    }
    model_->setIncluded(lines, !view_.isIncluded(static_cast<std::size_t>(current.row())));
}

void ImportReviewDialog::showState() {
    setSubtitle(qt(view_.summary()));
    setCanSave(view_.canImport());
}

void ImportReviewDialog::save() {
    view_.importLines();
}

} // namespace oakfen
