#include "Oakfen/Widgets/Components/DateField.h"

#include <QAction>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>
#include <utility>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "OakfenCore/Support/Text/Locale.h"

namespace oakfen {

namespace {

/// Room for any date; keeps a wrong paste from being a novel.
constexpr int greatestLength = 64;

bool isModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
           key == Qt::Key_AltGr || key == Qt::Key_Meta;
}

} // namespace

DateField::DateField(const QString& title, const Clock& clock, QWidget* parent)
    : EntryField(title,
                 tr("Up and down change the day; t is today, y yesterday, +7 a week later; "
                    "Alt+Down opens a calendar"),
                 parent),
      entry_(clock) {
    QAction* open = addAction(symbolIcon("calendar.badge.clock", ThemeColor::secondaryText),
                              QLineEdit::TrailingPosition);
    open->setText(tr("Choose in a Calendar"));
    open->setToolTip(tr("Choose in a calendar (Alt+Down)"));
    connect(open, &QAction::triggered, this, [this] { openCalendar(); });
    setMaxLength(greatestLength);
    showEntry();
}

void DateField::setValue(oakfen::Date value) {
    entry_.setValue(value);
    showEntry();
}

void DateField::keyPressEvent(QKeyEvent* event) {
    if (isModifier(event->key())) {
        EntryField::keyPressEvent(event);
        return;
    }
    const auto sign = std::exchange(lastSign_, std::nullopt);
    const bool opens = event->key() == Qt::Key_F4 ||
                       (event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier);
    const bool isFresh = selectedText() == text();
    const QString typed = event->text();
    if (opens) {
        openCalendar();
    } else if (sign && sign->count == 1 && isFresh && typed.size() == 1 && typed[0].isDigit()) {
        beginStep(*sign, typed);
    } else if (isFresh && (typed == QLatin1String("+") || typed == QLatin1String("-"))) {
        // Within a date that is being typed they stand between its parts.
        moveBySign(typed, sign ? sign->count + 1 : 1);
    } else if (!moveByKey(*event)) {
        EntryField::keyPressEvent(event);
    }
}

void DateField::focusOutEvent(QFocusEvent* event) {
    lastSign_.reset();
    EntryField::focusOutEvent(event);
}

void DateField::moveBySign(const QString& text, int count) {
    const CivilTime from = entry_.day();
    entry_.moveDays(text == QLatin1String("+") ? 1 : -1);
    showMove();
    lastSign_ = Sign{.text = text, .count = count, .from = from};
}

void DateField::beginStep(const Sign& sign, const QString& digit) {
    entry_.setDay(sign.from.year, sign.from.month, sign.from.day);
    setText(sign.text + digit);
}

bool DateField::moveByKey(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
        entry_.moveDays(1);
        break;
    case Qt::Key_Down:
        entry_.moveDays(-1);
        break;
    case Qt::Key_PageUp:
        entry_.moveMonths(1);
        break;
    case Qt::Key_PageDown:
        entry_.moveMonths(-1);
        break;
    default:
        return false;
    }
    showMove();
    return true;
}

void DateField::showMove() {
    showEntry();
    selectAll();
    edited();
}

void DateField::openCalendar() {
    if (sheet_ == nullptr) {
        makeCalendarSheet();
    }
    dressCalendarSheet();
    const CivilTime day = entry_.day();
    sheet_->setSelectedDate(QDate(day.year, day.month, day.day));
    QRect place(mapToGlobal(QPoint(0, height())),
                sheet_->sizeHint().expandedTo(sheet_->minimumSize()));
    if (place.bottom() > screen()->availableGeometry().bottom()) {
        place.moveBottom(mapToGlobal(QPoint(0, 0)).y());
    }
    sheet_->setGeometry(place);
    sheet_->show();
    sheet_->setFocus(Qt::PopupFocusReason);
}

void DateField::makeCalendarSheet() {
    sheet_ = new QCalendarWidget(this);
    sheet_->setWindowFlag(Qt::Popup);
    // The names of its days and months, and the day that its weeks begin with, go with the dates.
    sheet_->setLocale(QLocale(qt(userLocales().dates)));
    sheet_->setAccessibleName(accessibleName());
    sheet_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    sheet_->setDateRange(QDate(1, 1, 1), QDate(4001, 1, 1));
    sheet_->setDateEditEnabled(false);
    for (const auto& [name, symbol] : {std::pair("qt_calendar_prevmonth", "arrow.left"),
                                       std::pair("qt_calendar_nextmonth", "arrow.right")}) {
        if (auto* button = sheet_->findChild<QToolButton*>(QString::fromLatin1(name))) {
            button->setIcon(symbolIcon(symbol));
        }
    }
    const auto take = [this](QDate day) {
        sheet_->hide();
        entry_.setDay(day.year(), day.month(), day.day());
        showMove();
    };
    connect(sheet_, &QCalendarWidget::clicked, this, take);
    connect(sheet_, &QCalendarWidget::activated, this, take);
}

void DateField::dressCalendarSheet() {
    // Each time, since the theme may have changed meanwhile.
    QTextCharFormat plain;
    plain.setForeground(Theme::color(ThemeColor::text));
    QTextCharFormat quiet;
    quiet.setForeground(Theme::color(ThemeColor::secondaryText));
    sheet_->setHeaderTextFormat(quiet);
    for (const Qt::DayOfWeek weekendDay : {Qt::Saturday, Qt::Sunday}) {
        sheet_->setWeekdayTextFormat(weekendDay, plain);
    }
    // Wide enough for the names of the weekdays.
    constexpr int days = 7;
    const int dayWidth = sheet_->fontMetrics().horizontalAdvance(QStringLiteral("Wwwww"));
    sheet_->setMinimumWidth(days * dayWidth);
}

} // namespace oakfen
