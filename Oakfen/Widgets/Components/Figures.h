#pragma once

#include <QFont>
#include <QRectF>
#include <QString>

#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Widgets/Theme/Theme.h"

class QPainter;

namespace oakfen {

/// The theme's colour for a tone that a screen names.
[[nodiscard]] ThemeColor themeColor(TextTone tone);

/// What a bar, a disc or a dot of that tone is filled with; text of the tone is darker.
[[nodiscard]] QColor fillColor(TextTone tone);

/// How wide the text is when each digit takes the place of the font's widest one, so that amounts
/// line up digit under digit in any font.
[[nodiscard]] qreal figureWidth(const QFont& font, const QString& text);

/// The font, or a smaller one in which the text has room in the width: of an amount no digit is cut
/// off, nor told in dots.
[[nodiscard]] QFont fittingFigureFont(QFont font, const QString& text, qreal width);

/// Draws the text so, in the painter's font and pen, centred in the height.
void drawFigures(QPainter& painter, const QRectF& rect, const QString& text,
                 Qt::Alignment alignment = Qt::AlignRight);

} // namespace oakfen
