#include "Oakfen/Widgets/Theme/ThemeStyle.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QStyleOption>
#include <algorithm>
#include <map>

#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr qreal buttonRadius = 5;
constexpr int comboPadding = 4;

/// As high as a text field, so that the fields of a form are all of one height.
int fieldHeight(const QFontMetrics& metrics) {
    constexpr int leastTextHeight = 20;
    constexpr int paddingAndFrame = 8;
    return std::max(leastTextHeight, metrics.height()) + paddingAndFrame;
}

void drawPanel(QPainter* painter, const QRect& rect, const QColor& fill, const QColor& border) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(fill);
    painter->setPen(QPen(border, 1));
    painter->drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), buttonRadius,
                             buttonRadius);
    painter->restore();
}

/// The text of a date field or an editable list, whose frame is drawn already.
bool isInsideAnotherField(const QWidget* widget) {
    const QWidget* parent = widget != nullptr ? widget->parentWidget() : nullptr;
    return qobject_cast<const QAbstractSpinBox*>(parent) != nullptr ||
           qobject_cast<const QComboBox*>(parent) != nullptr;
}

QColor borderColor(const QStyleOption& option) {
    const bool focused = option.state.testFlag(QStyle::State_HasFocus) &&
                         option.state.testFlag(QStyle::State_Enabled);
    return Theme::color(focused ? ThemeColor::accent : ThemeColor::border);
}

QColor buttonColor(const QStyleOption& option) {
    if (!option.state.testFlag(QStyle::State_Enabled)) {
        return Theme::color(ThemeColor::window);
    }
    if (option.state & (QStyle::State_Sunken | QStyle::State_On)) {
        return Theme::color(ThemeColor::border);
    }
    return Theme::color(option.state.testFlag(QStyle::State_MouseOver) ? ThemeColor::surfaceRaised
                                                                       : ThemeColor::surface);
}

/// A sign of that size in the middle of its place.
void drawSign(QPainter* painter, const QRect& place, int size, const char* symbol, bool enabled) {
    const QRect box(place.center().x() - (size / 2) + 1, place.center().y() - (size / 2) + 1, size,
                    size);
    symbolIcon(symbol, ThemeColor::secondaryText)
        .paint(painter, box, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
}

void drawCheckBox(const QStyleOption& option, QPainter* painter) {
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool filled = option.state & (QStyle::State_On | QStyle::State_NoChange);
    const QColor accent = Theme::color(enabled ? ThemeColor::accent : ThemeColor::border);
    const QColor border = filled ? accent
                          : option.state.testFlag(QStyle::State_HasFocus)
                              ? accent
                              : Theme::color(ThemeColor::secondaryText);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(filled ? accent : Theme::color(ThemeColor::surface));
    painter->setPen(QPen(border, 1));
    const QRectF box = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
    painter->drawRoundedRect(box, 3, 3);
    if (filled) {
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(Theme::color(ThemeColor::onAccent), 1.8, Qt::SolidLine, Qt::RoundCap,
                             Qt::RoundJoin));
        const auto at = [&box](qreal x, qreal y) {
            return QPointF(box.left() + (x * box.width()), box.top() + (y * box.height()));
        };
        if (option.state.testFlag(QStyle::State_On)) {
            painter->drawPolyline(QPolygonF({at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.30)}));
        } else {
            painter->drawLine(at(0.25, 0.5), at(0.75, 0.5));
        }
    }
    painter->restore();
}

} // namespace

ThemeStyle::ThemeStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_PanelButtonCommand:
        drawPanel(painter, option->rect, buttonColor(*option), borderColor(*option));
        return;
    case PE_FrameLineEdit:
        if (isInsideAnotherField(widget)) {
            return;
        }
        drawPanel(painter, option->rect, Qt::transparent, borderColor(*option));
        return;
    case PE_PanelLineEdit:
        if (isInsideAnotherField(widget)) {
            return;
        }
        drawPanel(painter, option->rect, option->palette.color(QPalette::Base),
                  borderColor(*option));
        return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        drawCheckBox(*option, painter);
        return;
    case PE_FrameFocusRect: {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(Theme::color(ThemeColor::accent), 1));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
        painter->restore();
        return;
    }
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    const auto* stepper = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    if (control == CC_SpinBox && stepper != nullptr && stepper->frame) {
        drawStepper(*stepper, painter, widget);
        return;
    }
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control != CC_ComboBox || combo == nullptr || !combo->frame) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    const bool isField = combo->editable && combo->state.testFlag(State_Enabled);
    const bool isWrong = widget != nullptr && widget->property("invalid").toBool();
    drawPanel(painter, combo->rect,
              isField ? Theme::color(ThemeColor::surface) : buttonColor(*combo),
              isWrong ? Theme::color(ThemeColor::negative) : borderColor(*combo));
    constexpr int arrowSize = 10;
    drawSign(painter, proxy()->subControlRect(CC_ComboBox, combo, SC_ComboBoxArrow, widget),
             arrowSize, "chevron.down", combo->state.testFlag(State_Enabled));
}

void ThemeStyle::drawStepper(const QStyleOptionSpinBox& option, QPainter* painter,
                             const QWidget* widget) const {
    const bool enabled = option.state.testFlag(State_Enabled);
    drawPanel(painter, option.rect,
              Theme::color(enabled ? ThemeColor::surface : ThemeColor::window),
              borderColor(option));
    constexpr int arrowSize = 8;
    const auto drawArrow = [&](SubControl part, QAbstractSpinBox::StepEnabledFlag step,
                               const char* symbol) {
        drawSign(painter, proxy()->subControlRect(CC_SpinBox, &option, part, widget), arrowSize,
                 symbol, enabled && option.stepEnabled.testFlag(step));
    };
    drawArrow(SC_SpinBoxUp, QAbstractSpinBox::StepUpEnabled, "chevron.up");
    drawArrow(SC_SpinBoxDown, QAbstractSpinBox::StepDownEnabled, "chevron.down");
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (element != CE_ComboBoxLabel || combo == nullptr || combo->editable) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    QStyleOptionComboBox fitting = *combo;
    int room = proxy()->subControlRect(CC_ComboBox, combo, SC_ComboBoxEditField, widget).width();
    if (!combo->currentIcon.isNull()) {
        constexpr int gap = 4;
        room -= combo->iconSize.width() + gap;
    }
    constexpr int textMargin = 2;
    fitting.currentText =
        combo->fontMetrics.elidedText(combo->currentText, Qt::ElideRight, room - (2 * textMargin));
    QProxyStyle::drawControl(element, &fitting, painter, widget);
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return 18;
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
        return 16;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize ThemeStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                   const QSize& contents, const QWidget* widget) const {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    switch (type) {
    case CT_ComboBox:
        return {size.width() + (2 * comboPadding), fieldHeight(option->fontMetrics)};
    default:
        return size;
    }
}

QRect ThemeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl subControl, const QWidget* widget) const {
    const QRect rect = QProxyStyle::subControlRect(control, option, subControl, widget);
    const bool isText = (control == CC_ComboBox && subControl == SC_ComboBoxEditField) ||
                        (control == CC_SpinBox && subControl == SC_SpinBoxEditField);
    return isText ? rect.adjusted(comboPadding, 0, 0, 0) : rect;
}

void ThemeStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        // Wider than high: the picture stands in the middle.
        combo->setIconSize({22, 16});
    }
    if (const auto* stepper = qobject_cast<QAbstractSpinBox*>(widget);
        stepper != nullptr && stepper->hasFrame()) {
        // Beneath a style sheet the toolkit doesn't ask for the size of these.
        widget->setMinimumHeight(fieldHeight(widget->fontMetrics()));
    }
}

QIcon ThemeStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                               const QWidget* widget) const {
    static const std::map<StandardPixmap, const char*> symbols = {
        {SP_DirIcon, "folder"},
        {SP_DirClosedIcon, "folder"},
        {SP_DirOpenIcon, "folder"},
        {SP_DirHomeIcon, "house"},
        {SP_FileIcon, "doc.text"},
        {SP_ComputerIcon, "laptopcomputer"},
        {SP_DriveHDIcon, "externaldrive"},
        {SP_DesktopIcon, "laptopcomputer"},
        {SP_ArrowBack, "arrow.left"},
        {SP_ArrowForward, "arrow.right"},
        {SP_FileDialogBack, "arrow.left"},
        {SP_FileDialogToParent, "arrow.up"},
        {SP_FileDialogNewFolder, "folder.badge.plus"},
        {SP_FileDialogListView, "square.grid.2x2"},
        {SP_FileDialogDetailedView, "list.bullet"},
        {SP_LineEditClearButton, "xmark"},
    };
    const auto symbol = symbols.find(icon);
    return symbol == symbols.end() ? QProxyStyle::standardIcon(icon, option, widget)
                                   : symbolIcon(symbol->second, ThemeColor::secondaryText);
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returnData) const {
    switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText:
    // Turning the wheel scrolls; it must not change what happens to lie beneath the pointer.
    case SH_ComboBox_AllowWheelScrolling:
        return 0;
    case SH_MenuBar_AltKeyNavigation:
        if (widget != nullptr && widget->property(leavesAlt).toBool()) {
            return 0;
        }
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

} // namespace oakfen
