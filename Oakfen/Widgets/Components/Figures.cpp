#include "Oakfen/Widgets/Components/Figures.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace oakfen {

ThemeColor themeColor(TextTone tone) {
    switch (tone) {
    case TextTone::primary:
        return ThemeColor::text;
    case TextTone::secondary:
        return ThemeColor::secondaryText;
    case TextTone::positive:
        return ThemeColor::positive;
    case TextTone::negative:
        return ThemeColor::negative;
    case TextTone::warning:
        return ThemeColor::warning;
    case TextTone::information:
        return ThemeColor::information;
    }
    return ThemeColor::text;
}

QColor fillColor(TextTone tone) {
    // Places in the list of chart colours.
    constexpr std::size_t blue = 0;
    constexpr std::size_t orange = 2;
    constexpr std::size_t green = 5;
    constexpr std::size_t red = 11;
    switch (tone) {
    case TextTone::positive:
        return Theme::chartColor(green);
    case TextTone::negative:
        return Theme::chartColor(red);
    case TextTone::warning:
        return Theme::chartColor(orange);
    case TextTone::information:
        return Theme::chartColor(blue);
    default:
        return Theme::color(themeColor(tone));
    }
}

namespace {

bool isFigure(QChar character) {
    return character >= u'0' && character <= u'9';
}

qreal widestDigit(const QFontMetricsF& metrics) {
    qreal widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    }
    return widest;
}

/// Calls `place` for each digit and for each run of other text, with its offset and width.
template <typename Place>
qreal layOut(const QFontMetricsF& metrics, const QString& text, Place&& place) {
    const qreal digitWidth = widestDigit(metrics);
    qreal offset = 0;
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = start + 1;
        if (!isFigure(text[start])) {
            while (end < text.size() && !isFigure(text[end])) {
                ++end;
            }
        }
        const QString run = text.mid(start, end - start);
        const qreal width = isFigure(text[start]) ? digitWidth : metrics.horizontalAdvance(run);
        place(run, offset, width);
        offset += width;
        start = end;
    }
    return offset;
}

} // namespace

qreal figureWidth(const QFont& font, const QString& text) {
    return layOut(QFontMetricsF(font), text, [](const QString&, qreal, qreal) {});
}

QFont fittingFigureFont(QFont font, const QString& text, qreal width) {
    constexpr qreal least = 0.5;
    const qreal share = width / std::max(figureWidth(font, text), 1.0);
    if (share < 1) {
        font.setPointSizeF(font.pointSizeF() * std::max(share, least));
    }
    return font;
}

void drawFigures(QPainter& painter, const QRectF& rect, const QString& text,
                 Qt::Alignment alignment) {
    const QFontMetricsF metrics(painter.font());
    const qreal width = figureWidth(painter.font(), text);
    const qreal left = alignment.testFlag(Qt::AlignRight) ? rect.right() - width : rect.left();
    const qreal baseline = rect.center().y() + ((metrics.ascent() - metrics.descent()) / 2);
    layOut(metrics, text, [&](const QString& run, qreal offset, qreal cell) {
        const qreal slack = (cell - metrics.horizontalAdvance(run)) / 2;
        painter.drawText(QPointF(left + offset + slack, baseline), run);
    });
}

} // namespace oakfen
