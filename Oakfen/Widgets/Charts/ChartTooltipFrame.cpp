#include "Oakfen/Widgets/Charts/ChartTooltipFrame.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "Oakfen/Widgets/Charts/ChartPainting.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int paddingAcross = 12;
constexpr int paddingAlong = 6;
/// What the shadow takes on each side.
constexpr int shadow = 3;
constexpr int figureDistance = 10;
/// Between a name and its figure, where figures stand below each other.
constexpr int columnDistance = 24;
constexpr int swatchSize = 10;
constexpr int swatchDistance = 8;
constexpr int hairlineRoom = 7;
constexpr int mostNameWidth = 200;

int widthOf(TextStyle style, std::string_view text) {
    return static_cast<int>(std::ceil(figureWidth(Theme::font(style), qt(text))));
}

/// The title and the figures are strong, what they are is quiet.
struct Line {
    std::string_view name;
    std::string_view figure;
    bool hasMark = false;
    TextStyle figureStyle = TextStyle::captionStrong;

    [[nodiscard]] int width() const {
        return (hasMark ? swatchSize + swatchDistance : 0) +
               std::min(mostNameWidth, widthOf(TextStyle::caption, name)) +
               (figure.empty() ? 0 : columnDistance + widthOf(figureStyle, figure));
    }
};

Line lineOf(const ChartTooltip::Row& row) {
    return {row.name, row.figure, row.swatch.has_value(), TextStyle::captionStrong};
}

/// The names of all notes stand below each other, also where only some have a dot.
Line lineOf(const ChartNote& note, bool hasDots) {
    return {note.title, note.amount.text, hasDots, TextStyle::caption};
}

bool hasDots(const ChartTooltip& tooltip) {
    return std::any_of(tooltip.notes.begin(), tooltip.notes.end(),
                       [](const ChartNote& note) { return note.dot.has_value(); });
}

} // namespace

ChartTooltipFrame::ChartTooltipFrame(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

int ChartTooltipFrame::rowHeight() const {
    return QFontMetrics(Theme::font(TextStyle::caption)).height() + 2;
}

void ChartTooltipFrame::setTooltip(const ChartTooltip& tooltip, double mostHeight) {
    const auto rows = static_cast<double>(1 + tooltip.rows.size());
    const double room = mostHeight - 2 * paddingAlong - hairlineRoom - rows * rowHeight();
    const auto most = static_cast<std::size_t>(std::max(1.0, std::floor(room / rowHeight())));
    tooltip_ = withMostNotes(tooltip, most);
    resize(boxSize() + QSize(2 * shadow, 2 * shadow));
    update();
}

QSize ChartTooltipFrame::boxSize() const {
    if (tooltip_.isSingleLine()) {
        return sizeOfSingleLine();
    }
    int width = widthOf(TextStyle::captionStrong, tooltip_.title);
    auto lines = static_cast<int>(1 + tooltip_.rows.size());
    for (const ChartTooltip::Row& row : tooltip_.rows) {
        width = std::max(width, lineOf(row).width());
    }
    for (const ChartNote& note : tooltip_.notes) {
        width = std::max(width, lineOf(note, hasDots(tooltip_)).width());
        ++lines;
    }
    return {width + 2 * paddingAcross,
            lines * rowHeight() + 2 * paddingAlong + (tooltip_.notes.empty() ? 0 : hairlineRoom)};
}

QSize ChartTooltipFrame::sizeOfSingleLine() const {
    return {widthOf(TextStyle::caption, tooltip_.title) + figureDistance +
                widthOf(TextStyle::captionStrong, tooltip_.rows.front().figure) +
                2 * paddingAcross - 6,
            rowHeight() + 2 * paddingAlong - 2};
}

void ChartTooltipFrame::moveBox(const QPoint& corner) {
    move(corner - QPoint(shadow, shadow));
}

void ChartTooltipFrame::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(shadow, shadow, -shadow, -shadow);
    painter.setPen(Qt::NoPen);
    const QColor shade = faded(Theme::color(ThemeColor::shadow), 0.14);
    for (const int step : {1, 2}) {
        painter.setBrush(shade);
        painter.drawRoundedRect(box.adjusted(-step, -step + 1, step, step + 1),
                                Theme::cornerRadius + step, Theme::cornerRadius + step);
    }
    painter.setBrush(
        Theme::color(Theme::isDark() ? ThemeColor::surfaceRaised : ThemeColor::surface));
    painter.setPen(QPen(Theme::color(ThemeColor::border), 1));
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), Theme::cornerRadius,
                            Theme::cornerRadius);
    if (tooltip_.isSingleLine()) {
        paintSingleLine(painter, box.adjusted(paddingAcross - 3, 0, 3 - paddingAcross, 0));
    } else {
        paintRows(painter,
                  box.adjusted(paddingAcross, paddingAlong, -paddingAcross, -paddingAlong));
    }
}

void ChartTooltipFrame::paintSingleLine(QPainter& painter, const QRectF& inside) const {
    painter.setFont(Theme::font(TextStyle::caption));
    painter.setPen(Theme::color(ThemeColor::secondaryText));
    drawFigures(painter, inside, qt(tooltip_.title), Qt::AlignLeft);
    painter.setFont(Theme::font(TextStyle::captionStrong));
    painter.setPen(Theme::color(ThemeColor::text));
    drawFigures(painter, inside, qt(tooltip_.rows.front().figure));
}

void ChartTooltipFrame::paintRows(QPainter& painter, QRectF inside) const {
    const auto nextRow = [&inside, this] {
        QRectF row = inside;
        row.setHeight(rowHeight());
        inside.setTop(row.bottom());
        return row;
    };
    const auto paint = [&](const Line& line, ThemeColor nameRole, ThemeColor figureRole) {
        QRectF row = nextRow();
        const double figure = line.figure.empty() ? 0 : widthOf(line.figureStyle, line.figure);
        painter.setFont(Theme::font(line.figureStyle));
        painter.setPen(Theme::color(figureRole));
        drawFigures(painter, row, qt(line.figure));
        row.setLeft(row.left() + (line.hasMark ? swatchSize + swatchDistance : 0));
        row.setRight(row.right() - (figure > 0 ? figure + figureDistance : 0));
        painter.setFont(Theme::font(TextStyle::caption));
        painter.setPen(Theme::color(nameRole));
        drawChartText(painter, row, qt(line.name));
    };
    const auto markPlace = [&inside, this] {
        return QRectF(inside.left(), inside.top() + (rowHeight() - swatchSize) / 2.0, swatchSize,
                      swatchSize);
    };
    painter.setFont(Theme::font(TextStyle::captionStrong));
    painter.setPen(Theme::color(ThemeColor::text));
    drawFigures(painter, nextRow(), qt(tooltip_.title), Qt::AlignLeft);
    for (const ChartTooltip::Row& row : tooltip_.rows) {
        if (row.swatch) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(seriesFill(*row.swatch));
            painter.drawRoundedRect(markPlace(), 2, 2);
        }
        paint(lineOf(row), ThemeColor::secondaryText, ThemeColor::text);
    }
    if (tooltip_.notes.empty()) {
        return;
    }
    painter.fillRect(QRectF(inside.left(), inside.top() + hairlineRoom / 2, inside.width(), 1),
                     Theme::color(ThemeColor::border));
    inside.setTop(inside.top() + hairlineRoom);
    for (const ChartNote& note : tooltip_.notes) {
        if (note.dot) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(seriesFill(*note.dot));
            painter.drawEllipse(markPlace().adjusted(1, 1, -1, -1));
        }
        paint(lineOf(note, hasDots(tooltip_)), ThemeColor::text, themeColor(note.amount.tone));
    }
}

} // namespace oakfen
