#include "Oakfen/Widgets/Editors/SplitRowsWidget.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <algorithm>
#include <iterator>

#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

/// More lines than these scroll, so that the sheet's buttons stay on the screen.
constexpr std::size_t mostLinesShown = 6;

QPushButton* makeButton(const QString& title, const QString& tooltip) {
    auto* button = new QPushButton(title);
    button->setAutoDefault(false);
    button->setToolTip(tooltip);
    return button;
}

} // namespace

PickerCreation categoryCreation(TransactionEditor& editor) {
    return {.offer = [&editor](const std::string& typed) { return editor.categoryOffer(typed); },
            .make = [&editor](const std::string& path) { return editor.planCategory(path); }};
}

SplitRowsWidget::SplitRowsWidget(TransactionEditor& editor, QWidget* parent)
    : QWidget(parent), editor_(editor), area_(new QScrollArea), lines_(new QVBoxLayout),
      add_(makeButton(tr("Add Split Line"), tr("Assign a part to one more category"))),
      removeAll_(makeButton(tr("Remove Splits"), tr("Use one category for the whole amount"))),
      remainder_(new QLabel) {
    setAccessibleName(tr("Split Lines"));
    auto* lines = new QWidget;
    lines->setLayout(lines_);
    lines_->setContentsMargins(0, 0, 0, 0);
    lines_->setSpacing(Theme::grid / 2);
    area_->setWidget(lines);
    area_->setWidgetResizable(true);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setFocusPolicy(Qt::NoFocus);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Theme::grid);
    buttons->addWidget(add_);
    buttons->addWidget(removeAll_);
    buttons->addStretch(1);
    buttons->addWidget(remainder_);
    remainder_->setTextFormat(Qt::PlainText);
    Theme::setText(*remainder_, TextStyle::captionStrong, ThemeColor::warning);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Theme::grid);
    layout->addWidget(area_);
    layout->addLayout(buttons);
    connect(add_, &QPushButton::clicked, this, [this] { addLine(); });
    connect(removeAll_, &QPushButton::clicked, this, [this] { removed(); });
}

void SplitRowsWidget::showLines() {
    if (!std::ranges::equal(rows_, editor_.splits, {}, &Row::id,
                            &TransactionEditor::SplitDraft::id)) {
        reload();
    }
    listCategories();
    showRemainder();
}

void SplitRowsWidget::listCategories() {
    for (const Row& row : rows_) {
        const TransactionEditor::SplitDraft* line = editor_.splitLine(row.id);
        row.category->setRows(editor_.categoryChoices(line->categoryID));
    }
}

void SplitRowsWidget::reload() {
    for (const Row& row : rows_) {
        discard(row);
    }
    rows_.clear();
    for (const TransactionEditor::SplitDraft& line : editor_.splits) {
        addRow(line);
    }
    arrange();
}

void SplitRowsWidget::focusFirstLine() {
    if (!rows_.empty()) {
        rows_.front().category->setFocus(Qt::TabFocusReason);
    }
}

void SplitRowsWidget::showRemainder() {
    remainder_->setText(qt(editor_.remainderText()));
    remainder_->setVisible(!remainder_->text().isEmpty());
}

void SplitRowsWidget::addRow(const TransactionEditor::SplitDraft& line) {
    const Row row{.id = line.id,
                  .frame = new QWidget,
                  .category = new CategoryPicker(tr("Category")),
                  .memo = new QLineEdit(qt(line.memo)),
                  .amount = new AmountField(tr("Amount")),
                  .remove = new QToolButton};
    row.category->setCreation(categoryCreation(editor_));
    row.category->setRows(editor_.categoryChoices(line.categoryID));
    row.category->choose(line.categoryID);
    row.memo->setCursorPosition(0); // a long memo shows its beginning
    row.memo->setPlaceholderText(tr("Memo"));
    row.memo->setAccessibleName(tr("Memo"));
    row.memo->setMinimumWidth(1); // gives way before the amount does
    row.amount->setValue(line.amount);
    row.remove->setIcon(symbolIcon("minus.circle.fill", ThemeColor::secondaryText));
    row.remove->setAutoRaise(true);
    row.remove->setToolTip(tr("Remove split line"));
    row.remove->setAccessibleName(tr("Remove split line"));
    row.remove->setFocusPolicy(Qt::StrongFocus);

    auto* layout = new QHBoxLayout(row.frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Theme::grid / 2);
    layout->addWidget(row.category, 3);
    layout->addWidget(row.memo, 2);
    layout->addWidget(row.amount);
    layout->addWidget(row.remove);
    lines_->addWidget(row.frame);
    connectRow(row);
    rows_.push_back(row);
}

void SplitRowsWidget::connectRow(const Row& row) {
    const auto change = [this, id = row.id](auto&& apply) {
        if (TransactionEditor::SplitDraft* line = editor_.splitLine(id)) {
            apply(*line);
            alignAmounts();
            edited();
        }
    };
    row.category->chosen = [change, category = row.category] {
        change([&](auto& line) { line.categoryID = category->chosenID(); });
    };
    connect(row.memo, &QLineEdit::textChanged, this,
            [change](const QString& text) { change([&](auto& line) { line.memo = utf8(text); }); });
    row.amount->edited = [change, amount = row.amount] {
        change([&](auto& line) { line.amount = amount->value(); });
    };
    connect(row.amount, &QLineEdit::editingFinished, this, [this] { alignAmounts(); });
    connect(row.remove, &QToolButton::clicked, this, [this, id = row.id] { removeLine(id); });
}

void SplitRowsWidget::addLine() {
    editor_.addSplitLine();
    addRow(editor_.splits.back());
    arrange();
    edited();
    // The new line has its place only after the layout.
    area_->widget()->layout()->activate();
    area_->ensureWidgetVisible(rows_.back().frame);
    rows_.back().category->setFocus(Qt::TabFocusReason);
}

void SplitRowsWidget::removeLine(const UUID& id) {
    const auto row = std::ranges::find_if(rows_, [&](const Row& each) { return each.id == id; });
    if (row == rows_.end()) {
        return;
    }
    editor_.removeSplitLine(id);
    QWidget* next =
        std::next(row) != rows_.end() ? std::next(row)->remove : static_cast<QWidget*>(add_);
    next->setFocus(Qt::OtherFocusReason);
    discard(*row);
    rows_.erase(row);
    arrange();
    edited();
}

void SplitRowsWidget::discard(const Row& row) {
    // Later: its own button may be what was pressed.
    lines_->removeWidget(row.frame);
    row.frame->hide();
    row.frame->deleteLater();
}

void SplitRowsWidget::alignAmounts() {
    int widest = 0;
    for (const Row& row : rows_) {
        widest = std::max(widest, row.amount->neededWidth());
    }
    for (const Row& row : rows_) {
        row.amount->setFixedWidth(widest);
    }
}

void SplitRowsWidget::arrange() {
    alignAmounts();
    const int rowHeight = rows_.empty() ? 0 : rows_.front().frame->sizeHint().height();
    const int shown = static_cast<int>(std::min(rows_.size(), mostLinesShown));
    area_->setFixedHeight((shown * rowHeight) + (std::max(shown - 1, 0) * lines_->spacing()));
    area_->setVisible(shown > 0);
    // The lines were made after all else, and follow what comes before this widget.
    QWidget* last = previousInFocusChain();
    while (last->focusPolicy() == Qt::NoFocus) {
        last = last->previousInFocusChain();
    }
    int number = 0;
    for (const Row& row : rows_) {
        const QString line = tr("Split Line %1").arg(++number);
        row.frame->setAccessibleName(line);
        row.memo->setAccessibleDescription(line);
        row.amount->setPurpose(line);
        row.remove->setAccessibleDescription(line);
        for (QWidget* each :
             {static_cast<QWidget*>(row.category), static_cast<QWidget*>(row.memo),
              static_cast<QWidget*>(row.amount), static_cast<QWidget*>(row.remove)}) {
            setTabOrder(last, each);
            last = each;
        }
    }
    setTabOrder(last, add_);
    setTabOrder(add_, removeAll_);
}

} // namespace oakfen
