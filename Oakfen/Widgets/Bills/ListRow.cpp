#include "Oakfen/Widgets/Bills/ListRow.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QToolTip>

#include "Oakfen/Widgets/Components/CommandMenu.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/MenuBuilder.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

ListRow::ListRow(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_Hover);
}

void ListRow::drawLine(QPainter& painter, const QRect& rect, const QString& text, TextStyle style,
                       ThemeColor color) {
    painter.setFont(Theme::font(style));
    painter.setPen(Theme::color(color));
    const QString fitting =
        painter.fontMetrics().elidedText(text, Qt::ElideRight, std::max(0, rect.width()));
    if (fitting != text) {
        cut_.append(text);
    }
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, fitting);
}

void ListRow::drawMoney(QPainter& painter, const QRect& rect, const MoneyText& money) {
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(Theme::color(themeColor(money.tone)));
    drawFigures(painter, rect, qt(money.text));
}

bool ListRow::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), plainToolTip(cut_.join(u'\n')), this);
    return true;
}

void ListRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (underMouse()) {
        QColor lit = Theme::color(ThemeColor::surfaceRaised);
        lit.setAlphaF(0.8F);
        painter.fillRect(rect(), lit);
    }
    cut_.clear();
    paintRow(painter);
}

void ListRow::contextMenuEvent(QContextMenuEvent* event) {
    const std::vector<MenuEntry> lines = menu();
    if (lines.empty()) {
        return;
    }
    // It ends by itself, since its action may end this row.
    auto* popup = new CommandMenu(this);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    fillMenu(*popup, lines);
    popup->popup(event->globalPos());
}

} // namespace oakfen
