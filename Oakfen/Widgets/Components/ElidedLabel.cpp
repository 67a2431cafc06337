#include "Oakfen/Widgets/Components/ElidedLabel.h"

#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

ElidedLabel::ElidedLabel(TextStyle style, ThemeColor role, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    // Takes what room there is and never asks for more.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    Theme::setText(*this, style, role);
}

void ElidedLabel::showText(const QString& text) {
    whole_ = text;
    setAccessibleName(text);
    elide();
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::elide() {
    const QString fitting = fontMetrics().elidedText(whole_, Qt::ElideRight, width());
    setText(fitting);
    setToolTip(fitting == whole_ ? QString() : plainToolTip(whole_));
}

} // namespace oakfen
