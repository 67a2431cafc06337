#include "Oakfen/Widgets/Bills/OccurrenceRow.h"

#include <algorithm>
#include <cmath>

#include "Oakfen/Widgets/Components/DiscLabel.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/RowActionButton.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

constexpr int leastHeight = 44;
constexpr int discGap = 12;
/// Between the amount and what can be done.
constexpr int amountGap = 30;
constexpr int buttonPadding = 12;

int textHeight(TextStyle style) {
    return QFontMetrics(Theme::font(style)).height();
}

int buttonWidth(const QString& title) {
    return QFontMetrics(Theme::font(TextStyle::caption)).horizontalAdvance(title) +
           (2 * buttonPadding);
}

/// In the place of the buttons, where it isn't the next one yet.
QString laterText() {
    return OccurrenceRow::tr("Scheduled");
}

/// The same in all rows, so that the amounts stand under each other.
int actionsWidth() {
    const int buttons = buttonWidth(OccurrenceRow::tr("Enter")) + Theme::grid +
                        buttonWidth(OccurrenceRow::tr("Skip"));
    return std::max(buttons,
                    QFontMetrics(Theme::font(TextStyle::caption)).horizontalAdvance(laterText()));
}

} // namespace

OccurrenceRow::OccurrenceRow(const BillsContent::Row& content, QWidget* parent) : ListRow(parent) {
    showContent(content);
}

int OccurrenceRow::neededHeight() {
    return std::max(leastHeight, textHeight(TextStyle::body) + textHeight(TextStyle::caption) + 8);
}

void OccurrenceRow::showContent(const BillsContent::Row& content) {
    if (disc_ != nullptr && content == content_) {
        return;
    }
    content_ = content;
    if (disc_ == nullptr) {
        disc_ = new DiscLabel(this);
    }
    disc_->showMark(content.mark.symbolName, content.mark.tone);
    QStringList parts{qt(content.mark.spoken), qt(content.payee), qt(content.subtitle),
                      qt(content.amount.text)};
    if (!content.isNext) {
        parts.append(laterText());
    }
    parts.removeAll(QString());
    setAccessibleName(parts.join(QStringLiteral(", ")));
    showButtons();
    update();
}

QPushButton* OccurrenceRow::button(Action action) const {
    return action == Action::enter ? enter_ : skip_;
}

QPushButton* OccurrenceRow::makeButton(const QString& title, const QString& help, Action action) {
    auto* button = new RowActionButton(title, help, this);
    connect(button, &QPushButton::clicked, this, [this, action] { acted(*this, action); });
    return button;
}

void OccurrenceRow::showButtons() {
    if (content_.isNext && enter_ == nullptr) {
        enter_ =
            makeButton(tr("Enter"), tr("Put it into the register as it is planned"), Action::enter);
        skip_ = makeButton(tr("Skip"), tr("Leave it out this time"), Action::skip);
        placeButtons();
        enter_->show();
        skip_->show();
    } else if (!content_.isNext && enter_ != nullptr) {
        // Later: one of them may be what was pressed.
        for (QPushButton* each : {enter_, skip_}) {
            each->hide();
            each->deleteLater();
        }
        enter_ = nullptr;
        skip_ = nullptr;
    }
    if (enter_ != nullptr) {
        enter_->setAccessibleName(tr("Enter %1").arg(qt(content_.payee)));
        skip_->setAccessibleName(tr("Skip %1").arg(qt(content_.payee)));
    }
}

int OccurrenceRow::actionsLeft() const {
    return width() - padding - actionsWidth();
}

void OccurrenceRow::placeButtons() {
    constexpr int buttonHeight = 26;
    if (enter_ == nullptr) {
        return;
    }
    const int high = std::max(buttonHeight, enter_->sizeHint().height());
    int right = width() - padding;
    for (QPushButton* each : {skip_, enter_}) {
        const int wide = buttonWidth(each->text());
        each->setGeometry(right - wide, (height() - high) / 2, wide, high);
        right -= wide + Theme::grid;
    }
}

void OccurrenceRow::resizeEvent(QResizeEvent* event) {
    ListRow::resizeEvent(event);
    disc_->move(padding, (height() - disc_->height()) / 2);
    placeButtons();
}

void OccurrenceRow::paintRow(QPainter& painter) {
    const int left = padding + disc_->width() + discGap;
    const int amountRight = actionsLeft() - amountGap;
    const int amountWidth = static_cast<int>(
        std::ceil(figureWidth(Theme::font(TextStyle::body), qt(content_.amount.text))));
    const int textWidth = amountRight - amountWidth - padding - left;
    const int bodyHeight = textHeight(TextStyle::body);
    const int detailHeight = textHeight(TextStyle::caption);
    const int top = (height() - bodyHeight - detailHeight) / 2;
    drawLine(painter, {left, top, textWidth, bodyHeight}, qt(content_.payee), TextStyle::body,
             ThemeColor::text);
    drawLine(painter, {left, top + bodyHeight, textWidth, detailHeight}, qt(content_.subtitle),
             TextStyle::caption, ThemeColor::secondaryText);
    drawMoney(painter, {left, 0, amountRight - left, height()}, content_.amount);
    if (!content_.isNext) {
        painter.setFont(Theme::font(TextStyle::caption));
        painter.setPen(Theme::color(ThemeColor::secondaryText));
        painter.drawText(QRect(actionsLeft(), 0, actionsWidth(), height()),
                         Qt::AlignRight | Qt::AlignVCenter, laterText());
    }
}

} // namespace oakfen
