#include "Oakfen/Widgets/Bills/DayHeading.h"

#include <QPainter>
#include <algorithm>

#include "Oakfen/Widgets/Bills/ListRow.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

DayHeading::DayHeading(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setContentsMargins(ListRow::padding, 0, ListRow::padding, 0);
}

void DayHeading::showDay(const BillsContent::Day& day) {
    const QString relative = qt(day.relative);
    if (text() == qt(day.title) && relative_ == relative && isOverdue_ == day.isOverdue) {
        return;
    }
    isOverdue_ = day.isOverdue;
    relative_ = relative;
    setText(qt(day.title));
    setAccessibleName(relative_.isEmpty() ? text() : text() + QStringLiteral(", ") + relative_);
    Theme::setText(*this, TextStyle::captionStrong,
                   isOverdue_ ? ThemeColor::negative : ThemeColor::secondaryText);
    update();
}

int DayHeading::neededHeight() {
    constexpr int leastHeight = 28;
    return std::max(leastHeight, QFontMetrics(Theme::font(TextStyle::captionStrong)).height() + 12);
}

void DayHeading::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.fillRect(rect(), Theme::color(ThemeColor::window));
        QColor hairline = Theme::color(ThemeColor::border);
        hairline.setAlphaF(0.6F);
        painter.fillRect(0, 0, width(), 1, hairline);
        painter.fillRect(0, height() - 1, width(), 1, hairline);
        painter.setFont(Theme::font(TextStyle::caption));
        painter.setPen(Theme::color(isOverdue_ ? ThemeColor::negative : ThemeColor::secondaryText));
        painter.drawText(contentsRect(), Qt::AlignRight | Qt::AlignVCenter, relative_);
    }
    QLabel::paintEvent(event);
}

} // namespace oakfen
