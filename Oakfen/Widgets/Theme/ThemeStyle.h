#pragma once

#include <QProxyStyle>

class QStyleOptionSpinBox;

namespace oakfen {

/// Fusion with flat buttons, quiet frames and thin focus rings in the theme's colours.
class ThemeStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// Names the property of a menu bar that the Alt key alone doesn't lead to.
    static constexpr const char* leavesAlt = "leavesAlt";

    ThemeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    /// Ends a choice in dots where it has no room.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                         SubControl subControl, const QWidget* widget) const override;
    /// Our own icons in the toolkit's dialogs.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override;
    /// Sets the picture of a choice a little apart from its words, and makes a stepper as high as
    /// other fields.
    void polish(QWidget* widget) override;
    using QProxyStyle::polish;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;

private:
    void drawStepper(const QStyleOptionSpinBox& option, QPainter* painter,
                     const QWidget* widget) const;
};

} // namespace oakfen
