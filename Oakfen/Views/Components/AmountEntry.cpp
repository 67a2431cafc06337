#include "Oakfen/Views/Components/AmountEntry.h"

#include "Oakfen/Views/Components/AmountReading.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/TypedText.h"

namespace oakfen {

namespace {

std::string withoutPercentSigns(std::string_view text) {
    std::string plain = plainTyping(text);
    std::erase(plain, '%');
    return plain;
}

} // namespace

void AmountEntry::setValue(const Decimal& value) {
    value_ = value;
    show();
}

std::string AmountEntry::valueText() const {
    return numberText(value_, 2);
}

std::string AmountEntry::take(std::string_view text) {
    // In a field that asks for percent, "5%" is 5 and not five hundredths.
    AmountReading reading =
        kind_ == AmountKind::rate ? readAmount(withoutPercentSigns(text)) : readAmount(text);
    if (reading.value) {
        value_ = kind_ == AmountKind::money ? reading.value->toCents() : *reading.value;
    }
    return std::move(reading.explanation);
}

} // namespace oakfen
