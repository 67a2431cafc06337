#include "Oakfen/Widgets/ImportReviewModel.h"

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "OakfenCore/Support/Formatting.h"

namespace oakfen {

ImportReviewModel::ImportReviewModel(AppEnvironment& environment, ImportReviewView& view,
                                     QObject* parent)
    : QAbstractTableModel(parent), environment_(environment), view_(view),
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
        if (isTick) {
            return view_.isIncluded(line) ? tr("Will be imported") : tr("Left out");
        }
        return text(line, index.column());
    case Qt::ToolTipRole:
        if (isTick) {
            return view_.isIncluded(line) ? tr("Will be imported") : tr("Left out");
        }
        // Escaped, since a tooltip would take a bank's text for markup.
        return index.column() == Mark ? qt(view_.duplicateDescription(line)).toHtmlEscaped()
                                      : qt(singleLine(view_.items()[line].memo)).toHtmlEscaped();
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

QVariant ImportReviewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue((section == Amount ? Qt::AlignRight : Qt::AlignLeft) |
                                   Qt::AlignVCenter);
    }
    const bool isAccessible = role == Qt::AccessibleTextRole;
    if (role != Qt::DisplayRole && !isAccessible) {
        return {};
    }
    switch (section) {
    case Included:
        return isAccessible ? tr("Import") : QString();
    case Day:
        return tr("Date");
    case Payee:
        return tr("Payee");
    case Category:
        return tr("Category");
    case Amount:
        return tr("Amount");
    default:
        return isAccessible ? tr("Mark") : QString();
    }
}

} // namespace oakfen
