#include "Oakfen/Widgets/Components/LedgerModel.h"

#include "Oakfen/Views/Components.h"
#include "Oakfen/Widgets/Bridge.h"
#include "OakfenCore/Support/Formatting.h"

namespace oakfen {

QVariant LedgerModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == WholeTextsRole) {
        return wholeTexts(section);
    }
    const Heading heading = this->heading(section);
    switch (role) {
    case Qt::DisplayRole:
        return heading.title;
    case Qt::AccessibleTextRole:
        return heading.title.isEmpty() ? heading.spoken : heading.title;
    case Qt::ToolTipRole:
        return heading.toolTip;
    case Qt::TextAlignmentRole:
        return QVariant::fromValue((heading.isOfFigures ? Qt::AlignRight : Qt::AlignLeft) |
                                   Qt::AlignVCenter);
    default:
        return {};
    }
}

QStringList LedgerModel::amountTexts(const AmountRange& range, const std::string& currencyCode) {
    return {qt(moneyText(range.least, currencyCode).text),
            qt(moneyText(range.greatest, currencyCode).text)};
}

QStringList LedgerModel::dayTexts(const Calendar& calendar) {
    // Of any day: each digit is given the room of the widest one.
    return {qt(numericDateText(Date(), calendar))};
}

} // namespace oakfen
