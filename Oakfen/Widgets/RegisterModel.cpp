#include "Oakfen/Widgets/RegisterModel.h"

#include <algorithm>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "OakfenCore/Support/Formatting.h"
#include "OakfenCore/Support/Text.h"

namespace oakfen {

namespace {

bool isAmount(RegisterColumn column) {
    return column == RegisterColumn::payment || column == RegisterColumn::deposit ||
           column == RegisterColumn::balance;
}

/// The cell's amount; nothing where the cell stays empty.
std::optional<MoneyText> moneyOf(const RegisterRow& row, RegisterColumn column,
                                 const std::string& currencyCode) {
    if (column == RegisterColumn::balance) {
        return moneyText(row.balance, currencyCode);
    }
    const Decimal amount = column == RegisterColumn::payment ? row.payment() : row.deposit();
    if (amount.isZero()) {
        return std::nullopt;
    }
    MoneyText money = moneyText(amount, currencyCode);
    if (column == RegisterColumn::deposit) {
        money.tone = TextTone::positive;
    }
    return money;
}

std::string textOf(const RegisterRow& row, RegisterColumn column, const Calendar& calendar) {
    switch (column) {
    case RegisterColumn::date:
        return numericDateText(row.date, calendar);
    case RegisterColumn::number:
        return row.checkNumber;
    case RegisterColumn::payee:
        return row.payee;
    case RegisterColumn::category:
        return row.categoryName;
    case RegisterColumn::tags:
        return joined(row.tags, ", ");
    default:
        return {};
    }
}

TextTone toneOf(const RegisterRow& row, RegisterColumn column) {
    switch (column) {
    case RegisterColumn::cleared:
        return clearedBadge(row.cleared).tone;
    case RegisterColumn::tags:
        return TextTone::secondary;
    case RegisterColumn::category:
        if (row.isTransfer) {
            return TextTone::information;
        }
        return row.categoryName == "Uncategorized" ? TextTone::warning : TextTone::primary;
    default:
        return TextTone::primary;
    }
}

} // namespace

RegisterModel::RegisterModel(AppEnvironment& environment, const RegisterView& view, QObject* parent)
    : LedgerModel(parent), environment_(environment), view_(view),
      calendar_(environment.clock.calendar()) {}

void RegisterModel::reload() {
    beginResetModel();
    calendar_ = environment_.clock.calendar();
    shown_ = view_.filteredRows();
    endResetModel();
}

const UUID& RegisterModel::idAt(int row) const {
    return shown_[static_cast<std::size_t>(row)]->id;
}

int RegisterModel::rowOf(const UUID& id) const {
    const auto found =
        std::ranges::find_if(shown_, [&](const RegisterRow* each) { return each->id == id; });
    return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

int RegisterModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int RegisterModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(allCases<RegisterColumn>.size());
}

QVariant RegisterModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const RegisterRow& row = *shown_[static_cast<std::size_t>(index.row())];
    const auto column = allCases<RegisterColumn>[static_cast<std::size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
        if (isAmount(column)) {
            const auto money = moneyOf(row, column, environment_.currencyCode());
            return money ? qt(money->text) : QString();
        }
        return qt(singleLine(textOf(row, column, calendar_)));
    case Qt::AccessibleTextRole:
        return column == RegisterColumn::cleared ? qt(clearedBadge(row.cleared).tooltip)
                                                 : data(index, Qt::DisplayRole);
    case Qt::ToolTipRole:
        if (column == RegisterColumn::cleared) {
            return qt(clearedBadge(row.cleared).tooltip);
        }
        return column == RegisterColumn::payee ? plainToolTip(qt(row.memo)) : QString();
    case LedgerDelegate::ToneRole:
        if (isAmount(column)) {
            const auto money = moneyOf(row, column, environment_.currencyCode());
            return static_cast<int>(money ? money->tone : TextTone::primary);
        }
        return static_cast<int>(toneOf(row, column));
    case LedgerDelegate::FiguresRole:
        return isAmount(column);
    case LedgerDelegate::DetailRole:
        return column == RegisterColumn::payee ? qt(singleLine(row.memo)) : QString();
    case LedgerDelegate::SymbolRole:
        return column == RegisterColumn::cleared ? qt(clearedBadge(row.cleared).symbolName)
                                                 : QString();
    default:
        return {};
    }
}

LedgerModel::Heading RegisterModel::heading(int column) const {
    const auto shown = allCases<RegisterColumn>[static_cast<std::size_t>(column)];
    return {.title = qt(view_.columnTitle(shown)),
            .spoken = qt(view_.columnName(shown)),
            .toolTip = RegisterView::isSortable(shown) ? tr("Click to sort") : QString(),
            .isOfFigures = isAmount(shown)};
}

QStringList RegisterModel::wholeTexts(int column) const {
    const RegisterAmounts& amounts = view_.amounts();
    const std::string& currency = environment_.currencyCode();
    switch (allCases<RegisterColumn>[static_cast<std::size_t>(column)]) {
    case RegisterColumn::date:
        return dayTexts(calendar_);
    case RegisterColumn::payment:
        return amountTexts({.greatest = -amounts.entries.least}, currency);
    case RegisterColumn::deposit:
        return amountTexts({.greatest = amounts.entries.greatest}, currency);
    case RegisterColumn::balance:
        return amountTexts(amounts.balances, currency);
    default:
        return {};
    }
}

} // namespace oakfen
