#include "Oakfen/Widgets/Components/PageTool.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>

#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

/// Room for the frame that shows the focus, and a pixel beside it.
constexpr int edge = 2;
constexpr int symbolSize = 16;
constexpr int chevronSize = 10;
constexpr int chevronGap = 6;

int textWidth(const QToolButton& tool) {
    return tool.fontMetrics().size(Qt::TextShowMnemonic, tool.text()).width();
}

} // namespace

QSize PageTool::sizeHint() const {
    const int mark = menu() != nullptr ? chevronGap + chevronSize : 0;
    return {(2 * edge) + symbolSize + Theme::grid + textWidth(*this) + mark,
            QToolButton::sizeHint().height()};
}

void PageTool::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionToolButton ground;
    initStyleOption(&ground);
    ground.text.clear();
    ground.icon = {};
    painter.drawComplexControl(QStyle::CC_ToolButton, ground);

    QRect place = rect().adjusted(edge, 0, -edge, 0);
    const auto symbolPlace = [&](int size) {
        return QRect(place.left(), (height() - size) / 2, size, size);
    };
    icon().paint(&painter, symbolPlace(symbolSize), Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
    place.setLeft(place.left() + symbolSize + Theme::grid);
    painter.setPen(Theme::color(isEnabled() ? ThemeColor::text : ThemeColor::secondaryText));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
    if (menu() != nullptr) {
        place.setLeft(place.left() + textWidth(*this) + chevronGap);
        symbolIcon("chevron.down", ThemeColor::secondaryText)
            .paint(&painter, symbolPlace(chevronSize));
    }
}

} // namespace oakfen
