#include "Oakfen/Widgets/Import/ImportReviewDialog.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <utility>

#include "Oakfen/Widgets/Components/CaptionedAmount.h"
#include "Oakfen/Widgets/Components/EntryField.h"
#include "Oakfen/Widgets/Components/HintRow.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Components/RowTicker.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr QSize usualSize(880, 600);

} // namespace

ImportReviewDialog::ImportReviewDialog(AppEnvironment& environment,
                                       std::shared_ptr<const ImportSession> session,
                                       QWidget* parent)
    : SheetScaffold(environment.panels, qt(ImportReviewView::heading(*session)), QString(), parent),
      environment_(environment), view_(environment, std::move(session)),
      model_(new TableModel(view_.content()->table, this)),
      account_(new AccountPicker(tr("Into Account"))), table_(new LedgerTable), note_(new HintRow),
      tickAll_(new QPushButton(tr("Tick All"))), tickNone_(new QPushButton(tr("Tick None"))),
      moneyIn_(new CaptionedAmount(tr("Money In"))),
      moneyOut_(new CaptionedAmount(tr("Money Out"))) {
    resize(usualSize);
    setUpAccount(environment.store.index());
    setUpTable();
    addFooter();
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
    account_->installEventFilter(this);
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

void ImportReviewDialog::addFooter() {
    content()->addWidget(note_);
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::grid);
    content()->addLayout(row);
    tickAll_->setToolTip(tr("Import every line that the account doesn’t have yet"));
    // Each leaves the keyboard to the other, since it is disabled then, and what comes next would
    // close the sheet.
    connect(tickAll_, &QPushButton::clicked, this, [this] {
        view_.tickAll();
        tickNone_->setFocus(Qt::OtherFocusReason);
    });
    tickNone_->setToolTip(tr("Leave every line out"));
    connect(tickNone_, &QPushButton::clicked, this, [this] {
        view_.tickNone();
        tickAll_->setFocus(Qt::OtherFocusReason);
    });
    for (QPushButton* button : {tickAll_, tickNone_}) {
        button->setAutoDefault(false);
        row->addWidget(button, 0, Qt::AlignTop);
    }
    row->addStretch(1);
    row->addWidget(moneyIn_);
    row->addSpacing(2 * Theme::grid);
    row->addWidget(moneyOut_);
}

bool ImportReviewDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        if (isPlainReturn(*static_cast<QKeyEvent*>(event))) {
            if (finishFields()) {
                table_->setFocus(Qt::TabFocusReason);
            }
            return true;
        }
    }
    return SheetScaffold::eventFilter(watched, event);
}

void ImportReviewDialog::showContent() {
    const auto shown = view_.content();
    model_->show(shown->table);
    const auto markColumn = static_cast<int>(columnNamed(*shown->table, "mark").value());
    table_->setColumnShown(markColumn, shown->hasDuplicates);
    setSubtitle(qt(shown->summary));
    note_->showHint(qt(shown->note));
    tickAll_->setEnabled(shown->canTick);
    tickNone_->setEnabled(shown->canUntick);
    moneyIn_->setMoney(moneyText(shown->moneyIn, environment_.currencyCode()));
    moneyOut_->setMoney(moneyText(shown->moneyOut, environment_.currencyCode()));
    setPrimaryTitle(qt(shown->importTitle));
    setCanSave(shown->canImport);
}

void ImportReviewDialog::save() {
    view_.importLines();
}

} // namespace oakfen
