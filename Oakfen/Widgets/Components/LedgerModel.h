#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include "Oakfen/Views/AmountRange.h"
#include "OakfenCore/Support/Calendar.h"

namespace oakfen {

/// What the models of ledger tables have in common: their headings, and how much room figures need.
class LedgerModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// What `headerData` gives beside the usual roles.
    enum HeaderRole {
        /// The texts of a column that are never cut, the widest ones among them.
        WholeTextsRole = Qt::UserRole + 1,
    };

    using QAbstractTableModel::QAbstractTableModel;

    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const final;

protected:
    /// What stands above a column.
    struct Heading {
        QString title;
        /// What is said instead of an empty title.
        QString spoken;
        QString toolTip;
        /// Figures stand at the right, and so does their heading.
        bool isOfFigures = false;
    };

    [[nodiscard]] virtual Heading heading(int column) const = 0;
    /// See `WholeTextsRole`; none for a column whose texts may end in dots.
    [[nodiscard]] virtual QStringList wholeTexts(int column) const = 0;

    /// Those of a column with such amounts.
    [[nodiscard]] static QStringList amountTexts(const AmountRange& range,
                                                 const std::string& currencyCode);
    /// Those of a column of days.
    [[nodiscard]] static QStringList dayTexts(const Calendar& calendar);
};

} // namespace oakfen
