#include "Oakfen/Widgets/Components/FigureFit.h"

#include <QFontMetricsF>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

qreal textWidth(const FontText& text) {
    return QFontMetricsF(text.font).horizontalAdvance(text.text);
}

} // namespace

QString fittingFigure(const QFont& font, const FigureTexts& texts, qreal width) {
    for (const QString& text : {texts.whole, texts.compact}) {
        if (figureWidth(font, text) <= width) {
            return text;
        }
    }
    return QStringLiteral("…");
}

TitledFigureLayout layOutTitledFigure(const FontText& title, const FontText& detail,
                                      const QFont& figureFont, const FigureTexts& figure,
                                      qreal titleRoom, qreal width) {
    const bool hasDetail = !detail.text.isEmpty();
    TitledFigureLayout layout{.lines = hasDetail ? 2 : 1};
    if (figure.whole.isEmpty()) {
        return layout;
    }
    layout.figure = fittingFigure(figureFont, figure, width);
    const qreal needed = figureWidth(figureFont, layout.figure) + Theme::grid;
    if (textWidth(title) + needed <= titleRoom) {
        return layout;
    }
    const bool isBesideDetail = hasDetail && textWidth(detail) + needed <= width;
    layout.figureLine = hasDetail && !isBesideDetail ? 2 : 1;
    layout.lines = layout.figureLine + 1;
    return layout;
}

} // namespace oakfen
