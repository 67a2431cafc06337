#include "Oakfen/Views/Components/AmountEntry.h"

#include "Oakfen/Views/Components/AmountReading.h"
#include "OakfenCore/Support/Text/Formatting.h"

namespace oakfen {

void AmountEntry::setValue(const Decimal& value) {
    value_ = value;
    show();
}

std::string AmountEntry::valueText() const {
    return numberText(value_, 2);
}

std::string AmountEntry::take(std::string_view text) {
    AmountReading reading = readAmount(text);
    if (reading.value) {
        value_ = kind_ == AmountKind::money ? reading.value->toCents() : *reading.value;
    }
    return std::move(reading.explanation);
}

} // namespace oakfen
