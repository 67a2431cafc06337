#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QVariant>

class QApplication;
class QLabel;
class QWidget;

namespace oakfen {

/// The roles that widgets name; what each looks like is the theme's business alone.
enum class ThemeColor {
    window,        ///< behind everything
    surface,       ///< tables, cards, fields
    surfaceRaised, ///< headers, footers, the sidebar
    sheet,         ///< beneath the fields of a sheet
    border,
    text,
    secondaryText, ///< still readable: at least 4.5:1 on every surface
    accent,        ///< the default button, links, transfers
    onAccent,
    selection,
    onSelection,
    negative,    ///< red
    positive,    ///< green
    warning,     ///< orange
    information, ///< blue
    scrim,       ///< over what a sheet covers
    shadow,      ///< of a sheet, where it is deepest
};

enum class TextStyle {
    body,
    bodyStrong,
    caption,
    captionStrong,
    axis,     ///< beside the scales of charts
    capitals, ///< above a figure
    headline,
    figure, ///< one of several in a row; one that stands alone is as large as a title
    title,
    largeFigure
};

/// Colours, type sizes and distances, light and dark.
class Theme {
public:
    /// Distances are multiples of this, in device-independent pixels.
    static constexpr int grid = 8;
    static constexpr int cornerRadius = 6;
    static constexpr int sheetRadius = 10;
    static constexpr int tableRowHeight = 28;

    /// Gives the application its style, palette, font and the one style sheet, and follows the
    /// desktop's light or dark setting from then on.
    static void apply(QApplication& application);
    static void setDark(bool dark);
    [[nodiscard]] static bool isDark();

    [[nodiscard]] static QColor color(ThemeColor role);
    [[nodiscard]] static QFont font(TextStyle style);
    /// Gives the label a style and a colour that follows the theme.
    static void setText(QLabel& label, TextStyle style, ThemeColor role = ThemeColor::text);
    /// Sets a property that the style sheet looks at ("prominent", "destructive", "link").
    static void setTrait(QWidget& widget, const char* trait, const QVariant& value = true);
    /// Whether things may move on this desktop.
    [[nodiscard]] static bool animates();
    /// The twelve colours of chart series, in order; the list starts again after the last.
    [[nodiscard]] static QColor chartColor(std::size_t series);
};

} // namespace oakfen
