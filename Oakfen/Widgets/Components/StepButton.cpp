#include "Oakfen/Widgets/Components/StepButton.h"

#include <QFontMetrics>

#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int padding = 16;
constexpr int symbolSize = 24;

} // namespace

StepButton::StepButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void StepButton::showStep(std::string_view symbolName, const QString& title,
                          const QString& detail) {
    if (accessibleName() == title && detail_ == detail) {
        return;
    }
    icon_ = symbolIcon(symbolName, ThemeColor::accent);
    detail_ = detail;
    setText(withMnemonic(title, -1));
    setAccessibleName(title);
    setAccessibleDescription(detail_);
    // In a narrow window the line is cut.
    setToolTip(plainToolTip(detail_));
    update();
}

QSize StepButton::sizeHint() const {
    const int lines = QFontMetrics(Theme::font(TextStyle::bodyStrong)).height() +
                      QFontMetrics(Theme::font(TextStyle::body)).height();
    return {420, lines + (2 * padding)};
}

void StepButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isRaised = isEnabled() && (underMouse() || isDown());
    painter.setBrush(Theme::color(isRaised ? ThemeColor::surfaceRaised : ThemeColor::surface));
    painter.setPen(QPen(Theme::color(hasFocus() ? ThemeColor::accent : ThemeColor::border),
                        hasFocus() ? 2 : 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 10, 10);

    painter.setOpacity(isEnabled() ? 1 : 0.5);
    const QRect iconBox(padding, (height() - symbolSize) / 2, symbolSize, symbolSize);
    icon_.paint(&painter, iconBox);
    QRect space = rect().adjusted(iconBox.right() + padding, 0, -padding * 2, 0);
    const QRect chevron(width() - padding - 10, (height() - 12) / 2, 12, 12);
    symbolIcon("chevron.right", ThemeColor::secondaryText).paint(&painter, chevron);

    space.setHeight(height() / 2);
    painter.setFont(Theme::font(TextStyle::bodyStrong));
    painter.setPen(Theme::color(ThemeColor::text));
    painter.drawText(space.adjusted(0, 0, 0, -1),
                     Qt::AlignLeft | Qt::AlignBottom | Qt::TextShowMnemonic,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, space.width(),
                                                      Qt::TextShowMnemonic));
    space.moveTop(space.bottom() + 1);
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(Theme::color(ThemeColor::secondaryText));
    painter.drawText(space.adjusted(0, 1, 0, 0), Qt::AlignLeft | Qt::AlignTop,
                     painter.fontMetrics().elidedText(detail_, Qt::ElideRight, space.width()));
}

} // namespace oakfen
