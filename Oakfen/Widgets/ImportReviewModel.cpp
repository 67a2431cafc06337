#include "Oakfen/Widgets/ImportReviewModel.h"

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "OakfenCore/Support/Formatting.h"

namespace oakfen {

ImportReviewModel::ImportReviewModel(AppEnvironment& environment, ImportReviewView& view,
                                     QObject* parent)
    : LedgerModel(parent), environment_(environment), view_(view),
      calendar_(environment.clock.calendar()) {}

void ImportReviewModel::updateMarks() {
    if (rowCount() > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    }
}

void ImportReviewModel::setIncluded(const std::vector<int>& lines, bool isIncluded) {
    for (const int line : lines) {
        view_.setIncluded(static_cast<std::size_t>(line), isIncluded);
    }
    updateMarks();
    includedChanged();
}

int ImportReviewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(view_.items().size());
}

int ImportReviewModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QString ImportReviewModel::text(std::size_t line, int column) const {
    const ImportedTransaction& item = view_.items()[line];
    switch (column) {
    case Day:
        return qt(numericDateText(item.date, calendar_));
    case Payee:
        return qt(singleLine(item.payee));
    case Category:
        return qt(singleLine(item.categoryName.value_or("")));
    case Amount:
        return qt(moneyText(item.amount, environment_.currencyCode()).text);
    case Mark:
        return view_.duplicate(line) != nullptr ? tr("Duplicate") : QString();
    default:
        return {};
    }
}

QString ImportReviewModel::tickText(std::size_t line) const {
    if (!view_.isIncluded(line)) {
        return tr("Left out");
    }
    return view_.duplicate(line) == nullptr ? tr("Will be imported")
                                            : tr("Left out: already in this account");
}

QString ImportReviewModel::hint(std::size_t line) const {
    QStringList parts;
    for (const std::string& part :
         {singleLine(view_.items()[line].memo), view_.duplicateDescription(line)}) {
        if (!part.empty()) {
            parts << qt(part);
        }
    }
    return parts.join(QLatin1Char('\n'));
}

TextTone ImportReviewModel::tone(std::size_t line, int column) const {
    const ImportedTransaction& item = view_.items()[line];
    if (column == Mark) {
        return TextTone::warning;
    }
    if (!view_.isIncluded(line)) {
        return TextTone::secondary;
    }
    return column == Amount ? moneyText(item.amount, environment_.currencyCode()).tone
                            : TextTone::primary;
}

QVariant ImportReviewModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const auto line = static_cast<std::size_t>(index.row());
    const bool isTick = index.column() == Included;
    switch (role) {
    case Qt::DisplayRole:
        return text(line, index.column());
    case Qt::AccessibleTextRole:
        return isTick ? tickText(line) : text(line, index.column());
    case Qt::AccessibleDescriptionRole:
        return qt(view_.duplicateDescription(line));
    case Qt::ToolTipRole:
        return isTick ? tickText(line) : plainToolTip(hint(line));
    case LedgerDelegate::ToneRole:
        return static_cast<int>(tone(line, index.column()));
    case LedgerDelegate::FiguresRole:
        return index.column() == Amount;
    case LedgerDelegate::DetailRole:
        return index.column() == Payee ? qt(singleLine(view_.items()[line].memo)) : QString();
    case Qt::CheckStateRole:
        if (isTick) {
            return static_cast<int>(view_.isIncluded(line) ? Qt::Checked : Qt::Unchecked);
        }
        return {};
    default:
        return {};
    }
}

LedgerModel::Heading ImportReviewModel::heading(int column) const {
    switch (column) {
    case Included:
        return {.spoken = tr("Import")};
    case Day:
        return {.title = tr("Date")};
    case Payee:
        return {.title = tr("Payee")};
    case Category:
        return {.title = tr("Category")};
    case Amount:
        return {.title = tr("Amount"), .isOfFigures = true};
    default:
        return {.spoken = tr("Mark")};
    }
}

QStringList ImportReviewModel::wholeTexts(int column) const {
    if (column == Day) {
        return dayTexts(calendar_);
    }
    if (column != Amount) {
        return {};
    }
    AmountRange range;
    for (const ImportedTransaction& item : view_.items()) {
        range.include(item.amount);
    }
    return amountTexts(range, environment_.currencyCode());
}

} // namespace oakfen
