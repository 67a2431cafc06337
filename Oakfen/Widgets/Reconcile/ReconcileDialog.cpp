#include "Oakfen/Widgets/Reconcile/ReconcileDialog.h"

#include <QFormLayout>
#include <QKeyEvent>

#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/CaptionedAmount.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Components/EntryField.h"
#include "Oakfen/Widgets/Components/HintRow.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/RowTicker.h"
#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

constexpr QSize usualSize(760, 600);
/// Of both fields: the room that a long amount asks for.
constexpr int fieldWidth = 260;

QLabel* makeVerdict() {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    Theme::setText(*label, TextStyle::caption, ThemeColor::secondaryText);
    return label;
}

} // namespace

ReconcileDialog::ReconcileDialog(AppEnvironment& environment, const Account& account,
                                 QWidget* parent)
    : SheetScaffold(environment.panels, qt(singleLine(ReconcileView::heading(account))), QString(),
                    parent),
      environment_(environment), view_(environment, account.id),
      model_(new TableModel(view_.content()->table, this)),
      statementDate_(new DateField(tr("Statement Date"), environment.clock)),
      endingBalance_(new AmountField(tr("Ending Balance"))), table_(new LedgerTable),
      hint_(new HintRow), markAll_(new QPushButton(tr("Mark All"))),
      unmarkAll_(new QPushButton(tr("Unmark All"))),
      reconciled_(new CaptionedAmount(tr("Last Reconciled"))),
      cleared_(new CaptionedAmount(tr("Cleared"))),
      difference_(new CaptionedAmount(tr("Difference"), TextStyle::largeFigure)),
      mark_(new SymbolLabel("checkmark.circle.fill", 2 * Theme::grid, ThemeColor::positive)),
      verdict_(makeVerdict()) {
    resize(usualSize);
    setSubtitle(qt(ReconcileView::instructions()));
    // Room for the longer title from the beginning.
    showFinishTitle(ReconcileContent{.difference = Decimal(1)});
    addFields();
    setUpTable();
    addFooter();
    addSaveForLater();
    changed_ = view_.changed.observe([this] { showContent(); });
    showContent();
    endingBalance_->setFocus();
}

void ReconcileDialog::addFields() {
    QFormLayout* form = addForm();
    statementDate_->setPurpose(tr("The last day that the statement covers"));
    statementDate_->setValue(view_.statementDate());
    statementDate_->edited = [this] {
        setProblem({});
        view_.setStatementDate(statementDate_->value());
    };
    form->addRow(tr("Statement Date"), statementDate_);
    endingBalance_->setValue(view_.statementBalance());
    endingBalance_->edited = [this] {
        setProblem({});
        view_.setStatementBalance(endingBalance_->value());
    };
    form->addRow(tr("Ending Balance"), endingBalance_);
    for (EntryField* field : std::initializer_list<EntryField*>{statementDate_, endingBalance_}) {
        connect(field, &QLineEdit::textChanged, this, [this] { showVerdict(*view_.content()); });
        // They stay alike, whatever they hold.
        field->setMaximumWidth(fieldWidth);
        field->installEventFilter(this);
    }
}

void ReconcileDialog::setUpTable() {
    table_->setAccessibleName(tr("Transactions to tick"));
    table_->setFrameShape(QFrame::StyledPanel);
    table_->setTable(*model_, QStringLiteral("Reconcile/Columns"));
    content()->addWidget(table_, 1);
    auto* ticker =
        new RowTicker(*table_, *model_, [this](const std::vector<UUID>& entries, bool isChecked) {
            view_.setChecked(entries, isChecked);
        });
    ticker->setTicksWithReturn();
}

void ReconcileDialog::addFooter() {
    hint_->pressed = [this] { followHint(); };
    content()->addWidget(hint_);
    auto* row = new QHBoxLayout;
    row->setSpacing(3 * Theme::grid);
    content()->addLayout(row);
    auto* marks = new QHBoxLayout;
    marks->setSpacing(Theme::grid);
    row->addLayout(marks);
    markAll_->setToolTip(tr("Tick every transaction in the list"));
    connect(markAll_, &QPushButton::clicked, this, [this] { view_.markAll(); });
    unmarkAll_->setToolTip(tr("Take all ticks away"));
    connect(unmarkAll_, &QPushButton::clicked, this, [this] {
        view_.unmarkAll();
        // Disabled now; the keyboard would go on to a button that closes the sheet.
        markAll_->setFocus(Qt::OtherFocusReason);
    });
    for (QPushButton* button : {markAll_, unmarkAll_}) {
        button->setAutoDefault(false);
        marks->addWidget(button, 0, Qt::AlignTop);
    }
    row->addStretch(1);
    for (CaptionedAmount* figure : {reconciled_, cleared_, difference_}) {
        row->addWidget(figure);
    }

    auto* verdictRow = new QHBoxLayout;
    verdictRow->setSpacing(Theme::grid / 2);
    content()->addLayout(verdictRow);
    verdictRow->addStretch(1);
    verdictRow->addWidget(mark_);
    verdictRow->addWidget(verdict_);
}

void ReconcileDialog::addSaveForLater() {
    QPushButton* button = addSecondButton(tr("Save for Later"));
    button->setToolTip(tr("Keep the ticks as cleared and go on another time"));
    connect(button, &QPushButton::clicked, this, [this] {
        view_.saveForLater();
        accept();
    });
}

bool ReconcileDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        if (isPlainReturn(*static_cast<QKeyEvent*>(event))) {
            leaveField(watched);
            return true;
        }
    }
    return SheetScaffold::eventFilter(watched, event);
}

void ReconcileDialog::leaveField(const QObject* field) {
    if (finishFields()) {
        QWidget* next = field == statementDate_ ? static_cast<QWidget*>(endingBalance_) : table_;
        next->setFocus(Qt::TabFocusReason);
    }
}

void ReconcileDialog::showContent() {
    const auto shown = view_.content();
    model_->show(shown->table);
    if (!table_->currentIndex().isValid() && model_->rowCount() > 0) {
        const auto payee = columnNamed(model_->content(), "payee").value_or(0);
        table_->setCurrentIndex(model_->index(0, static_cast<int>(payee)));
    }
    const std::string& currencyCode = environment_.currencyCode();
    reconciled_->setMoney(moneyText(shown->reconciled, currencyCode));
    cleared_->setMoney(moneyText(shown->clearedTotal, currencyCode));
    difference_->setMoney(moneyText(shown->difference, currencyCode));
    showVerdict(*shown);
    unmarkAll_->setEnabled(shown->canUnmark);
    setCanSave(shown->canFinish());
    showFinishTitle(*shown);
    primaryButton()->setToolTip(qt(shown->finishHelp()));
}

void ReconcileDialog::showVerdict(const ReconcileContent& shown) {
    // The figures are of what could be read last.
    const bool isReadable = statementDate_->isReadable() && endingBalance_->isReadable();
    mark_->setVisible(isReadable && shown.isMatched());
    verdict_->setText(isReadable ? qt(shown.verdict)
                                 : tr("The statement’s figures can’t be read yet"));
    const ReconcileHint hint = shown.hint.value_or(ReconcileHint{});
    hint_->showHint(isReadable ? qt(hint.sentence) : QString(), qt(hint.buttonTitle));
}

void ReconcileDialog::showFinishTitle(const ReconcileContent& shown) {
    setPrimaryTitle(qt(shown.finishTitle()));
}

void ReconcileDialog::followHint() {
    const auto hint = view_.content()->hint;
    // Before the line may go, and the keyboard with it to whatever comes next.
    table_->setFocus(Qt::OtherFocusReason);
    view_.followHint();
    if (const int row = hint ? model_->rowOf(hint->entryIDs.front()) : -1; row >= 0) {
        // The person sees which entry it was.
        table_->setCurrentIndex(model_->index(row, table_->currentIndex().column()));
    }
}

void ReconcileDialog::save() {
    view_.finish();
}

} // namespace oakfen
