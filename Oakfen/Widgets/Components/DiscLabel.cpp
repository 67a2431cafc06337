#include "Oakfen/Widgets/Components/DiscLabel.h"

#include <QPainter>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"

namespace oakfen {

namespace {

constexpr int discSize = 20;
constexpr int signSize = 12;

} // namespace

DiscLabel::DiscLabel(QWidget* parent) : QWidget(parent) {
    setFixedSize(discSize, discSize);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void DiscLabel::showMark(std::string_view symbolName, TextTone tone) {
    constexpr std::string_view disc = ".circle.fill";
    if (symbolName.ends_with(disc)) {
        symbolName.remove_suffix(disc.size());
    }
    sign_ = symbolIcon(symbolName, ThemeColor::surface);
    tone_ = tone;
    update();
}

void DiscLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fillColor(tone_));
    painter.drawEllipse(rect());
    constexpr int inset = (discSize - signSize) / 2;
    sign_.paint(&painter, rect().adjusted(inset, inset, -inset, -inset));
}

} // namespace oakfen
