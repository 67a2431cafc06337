#include "Oakfen/Widgets/Components/WrappedLabel.h"

#include <algorithm>

namespace oakfen {

WrappedLabel::WrappedLabel(TextStyle style, ThemeColor role, int width, QWidget* parent)
    : QLabel(parent) {
    Theme::setText(*this, style, role);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setFixedWidth(width);
}

void WrappedLabel::showText(const QString& text) {
    setText(text);
    // An empty label has no height to tell.
    setFixedHeight(std::max(0, heightForWidth(width())));
}

} // namespace oakfen
