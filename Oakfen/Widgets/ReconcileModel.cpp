#include "Oakfen/Widgets/ReconcileModel.h"

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "OakfenCore/Support/Formatting.h"

namespace oakfen {

ReconcileModel::ReconcileModel(AppEnvironment& environment, ReconcileView& view, QObject* parent)
    : LedgerModel(parent), environment_(environment), view_(view),
      calendar_(environment.clock.calendar()), rows_(view.rows()) {}

void ReconcileModel::reload() {
    beginResetModel();
    rows_ = view_.rows();
    endResetModel();
}

void ReconcileModel::setChecked(const std::vector<int>& rows, bool isChecked) {
    for (const int row : rows) {
        view_.setChecked(rows_[static_cast<std::size_t>(row)]->id, isChecked);
    }
    updateTicks();
}

void ReconcileModel::markAll() {
    view_.markAll();
    updateTicks();
}

void ReconcileModel::updateTicks() {
    if (!rows_.empty()) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    }
    checkedChanged();
}

int ReconcileModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ReconcileModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QString ReconcileModel::text(const Transaction& entry, int column) const {
    switch (column) {
    case Day:
        return qt(numericDateText(entry.date, calendar_));
    case Payee:
        return qt(singleLine(entry.payee));
    case Amount:
        return qt(moneyText(entry.amount, environment_.currencyCode()).text);
    default:
        return {};
    }
}

QVariant ReconcileModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const Transaction& entry = *rows_[static_cast<std::size_t>(index.row())];
    const bool isTick = index.column() == Ticked;
    const bool isChecked = view_.isChecked(entry.id);
    switch (role) {
    case Qt::DisplayRole:
        return text(entry, index.column());
    case Qt::AccessibleTextRole:
        if (isTick) {
            return isChecked ? tr("On the statement") : tr("Not on the statement");
        }
        return text(entry, index.column());
    case Qt::ToolTipRole:
        return isTick ? data(index, Qt::AccessibleTextRole)
                      : plainToolTip(qt(singleLine(entry.memo)));
    case LedgerDelegate::ToneRole:
        return static_cast<int>(index.column() == Amount
                                    ? moneyText(entry.amount, environment_.currencyCode()).tone
                                    : TextTone::primary);
    case LedgerDelegate::FiguresRole:
        return index.column() == Amount;
    case LedgerDelegate::DetailRole:
        return index.column() == Payee ? qt(singleLine(entry.memo)) : QString();
    case Qt::CheckStateRole:
        return isTick ? QVariant(static_cast<int>(isChecked ? Qt::Checked : Qt::Unchecked))
                      : QVariant();
    default:
        return {};
    }
}

LedgerModel::Heading ReconcileModel::heading(int column) const {
    switch (column) {
    case Day:
        return {.title = tr("Date")};
    case Payee:
        return {.title = tr("Payee")};
    case Amount:
        return {.title = tr("Amount"), .isOfFigures = true};
    default:
        return {.spoken = tr("On the statement")};
    }
}

QStringList ReconcileModel::wholeTexts(int column) const {
    if (column == Day) {
        return dayTexts(calendar_);
    }
    if (column != Amount) {
        return {};
    }
    AmountRange range;
    for (const Transaction* entry : rows_) {
        range.include(entry->amount);
    }
    return amountTexts(range, environment_.currencyCode());
}

} // namespace oakfen
