#include "Oakfen/Widgets/Components/StepField.h"

#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>

namespace oakfen {

StepField::StepField(const QString& title, const StepRange& range, QWidget* parent)
    : QSpinBox(parent), least_(range.least), greatest_(range.greatest) {
    setAccessibleName(title);
    setRange(least_, greatest_);
    setPrefix(range.prefix);
    setSuffix(range.suffix);
    setSpecialValueText(range.leastText);
    connect(this, &QSpinBox::valueChanged, this, [this](int value) {
        // Only then: it would write over what is being typed.
        if (maximum() > greatest_ && value <= greatest_) {
            setMaximum(greatest_);
        }
    });
}

void StepField::showValue(int value) {
    const QSignalBlocker blocker(this);
    setMaximum(std::max(greatest_, value));
    setValue(value);
}

void StepField::stepBy(int steps) {
    setValue(std::clamp(value() + steps, least_, greatest_));
    selectAll();
}

void StepField::wheelEvent(QWheelEvent* event) {
    // For what scrolls beneath the field.
    event->ignore();
}

} // namespace oakfen
