#include "Oakfen/Widgets/Components/FlowingLabel.h"

#include <algorithm>

namespace oakfen {

FlowingLabel::FlowingLabel(TextStyle style, ThemeColor role, QWidget* parent) : QLabel(parent) {
    Theme::setText(*this, style, role);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMinimumWidth(1);
}

void FlowingLabel::showText(const QString& text) {
    setText(text);
    fitHeight();
}

void FlowingLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    fitHeight();
}

void FlowingLabel::fitHeight() {
    // An empty label has no height to tell.
    setFixedHeight(std::max(0, heightForWidth(width())));
}

} // namespace oakfen
