#pragma once

#include <QFont>
#include <QString>

namespace oakfen {

/// An amount in its two forms: whole, and in few characters.
struct FigureTexts {
    QString whole;
    QString compact;
};

/// The form of the amount that the width can hold; dots where it holds neither. Digits are never
/// cut off: the rest would be read as another amount.
[[nodiscard]] QString fittingFigure(const QFont& font, const FigureTexts& texts, qreal width);

/// Where a title, its figure and a detail beneath the title stand in a place of some width.
struct TitledFigureLayout {
    /// The figure as it is to be shown.
    QString figure;
    /// The line that the figure ends, counted from 0, which is that of the title.
    int figureLine = 0;
    /// How many lines there are; the detail, if any, is on line 1.
    int lines = 1;
};

/// A text and the font that it is shown in.
struct FontText {
    QFont font;
    QString text;
};

/// The figure stands beside the title where both have room there, else beside the detail, else on a
/// line of its own. `titleRoom` is what the title's line has for both: less than the others where
/// something else stands there too.
[[nodiscard]] TitledFigureLayout layOutTitledFigure(const FontText& title, const FontText& detail,
                                                    const QFont& figureFont,
                                                    const FigureTexts& figure, qreal titleRoom,
                                                    qreal width);

} // namespace oakfen
