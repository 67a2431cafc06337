#include "Oakfen/Widgets/Components/AmountField.h"

#include <algorithm>

#include "Oakfen/Views/Components/AmountReading.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

/// Room for the longest amount there can be, with its groups; keeps a wrong paste from being a
/// novel.
constexpr int greatestLength = 300;
constexpr int leastWidth = 110;
constexpr int greatestWidth = 260;

} // namespace

AmountField::AmountField(const QString& title, AmountKind kind, QWidget* parent)
    : EntryField(title,
                 tr("An amount, or a sum such as %1 or 100+13%").arg(qt(exampleCalculation())),
                 parent),
      entry_(kind) {
    setAlignment(Qt::AlignRight);
    setMaxLength(greatestLength);
    showEntry();
}

int AmountField::neededWidth() const {
    constexpr int frame = 20;
    const int width = fontMetrics().horizontalAdvance(text()) + frame;
    return std::clamp(width, leastWidth, greatestWidth);
}

void AmountField::textShown() {
    setMinimumWidth(neededWidth());
}

void AmountField::setValue(const Decimal& value) {
    entry_.setValue(value);
    showEntry();
}

} // namespace oakfen
