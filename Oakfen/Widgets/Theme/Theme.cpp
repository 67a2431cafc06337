#include "Oakfen/Widgets/Theme/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLabel>
#include <array>

#include "Oakfen/Widgets/Theme/DesktopAppearance.h"
#include "Oakfen/Widgets/Theme/ThemeColors.h"
#include "Oakfen/Widgets/Theme/ThemeStyle.h"

namespace oakfen {

namespace {

bool darkTheme = false;

/// The desktop's own font; where it names none, the toolkit falls back to a generic family, and
/// then we choose.
QFont applicationFont() {
    QFont font = QApplication::font();
    const QString family = font.family();
    const bool isGeneric = family.isEmpty() || family == QStringLiteral("Sans Serif") ||
                           family == QStringLiteral("Sans") ||
                           family == QStringLiteral("Helvetica");
    if (isGeneric && QFontDatabase::families().contains(QStringLiteral("Inter"))) {
        font.setFamily(QStringLiteral("Inter"));
        font.setPointSizeF(10);
    }
    return font;
}

bool isDarkPalette(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

} // namespace

void Theme::apply(QApplication& application) {
    const bool desktopIsDark = isDarkPalette(QApplication::palette());
    QApplication::setStyle(new ThemeStyle);
    QApplication::setFont(applicationFont());
    setDark(desktopIsDark);
    new DesktopAppearance(&Theme::setDark, &application);
}

void Theme::setDark(bool dark) {
    darkTheme = dark;
    QApplication::setPalette(themePalette(dark));
    qApp->setStyleSheet(themeStyleSheet(dark));
}

bool Theme::isDark() {
    return darkTheme;
}

QColor Theme::color(ThemeColor role) {
    return themeColor(role, darkTheme);
}

QFont Theme::font(TextStyle style) {
    QFont font = QApplication::font();
    const auto scaled = [&font](double factor, QFont::Weight weight) -> QFont& {
        if (font.pointSizeF() > 0) {
            font.setPointSizeF(font.pointSizeF() * factor);
        } else {
            font.setPixelSize(static_cast<int>(font.pixelSize() * factor));
        }
        font.setWeight(weight);
        return font;
    };
    switch (style) {
    case TextStyle::body:
        return font;
    case TextStyle::bodyStrong:
        return scaled(1, QFont::DemiBold);
    case TextStyle::caption:
        return scaled(0.9, QFont::Normal);
    case TextStyle::captionStrong:
        return scaled(0.9, QFont::DemiBold);
    case TextStyle::axis:
        return scaled(0.82, QFont::Normal);
    case TextStyle::capitals:
        scaled(0.82, QFont::Medium).setLetterSpacing(QFont::PercentageSpacing, 105);
        return font;
    case TextStyle::headline:
        return scaled(1.2, QFont::DemiBold);
    case TextStyle::figure:
        return scaled(1.4, QFont::DemiBold);
    case TextStyle::title:
        return scaled(1.7, QFont::DemiBold);
    case TextStyle::largeFigure:
        return scaled(2.2, QFont::DemiBold);
    }
    return font;
}

void Theme::setText(QLabel& label, TextStyle style, ThemeColor role) {
    label.setFont(font(style));
    setTrait(label, "textColor", static_cast<int>(role));
}

void Theme::setTrait(QWidget& widget, const char* trait, const QVariant& value) {
    if (widget.property(trait) == value) {
        return;
    }
    widget.setProperty(trait, value);
    // A widget that was polished already takes up a changed property only when polished again; one
    // that wasn't is polished when it is shown.
    if (widget.testAttribute(Qt::WA_WState_Polished)) {
        widget.style()->unpolish(&widget);
        widget.style()->polish(&widget);
    }
}

bool Theme::animates() {
    return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

QColor Theme::chartColor(std::size_t series) {
    // Blue, teal, orange, pink, purple, green, indigo, yellow, mint, brown, cyan, red.
    static constexpr std::array<QRgb, 12> light = {0xFF2F6FD0, 0xFF0F8A8A, 0xFFD9730D, 0xFFD1437F,
                                                   0xFF8A4BC2, 0xFF3A8F3F, 0xFF4B50C4, 0xFFC29400,
                                                   0xFF2FA583, 0xFF8A6247, 0xFF2794BF, 0xFFC7372F};
    static constexpr std::array<QRgb, 12> dark = {0xFF6FA3F2, 0xFF43BDBD, 0xFFF2A154, 0xFFEE85B0,
                                                  0xFFB98AE6, 0xFF75C47A, 0xFF8F93F0, 0xFFE3C04B,
                                                  0xFF6AD6B6, 0xFFBF9A80, 0xFF6CC4E8, 0xFFF07F77};
    const std::size_t index = series % light.size();
    return QColor::fromRgb(darkTheme ? dark[index] : light[index]);
}

} // namespace oakfen
