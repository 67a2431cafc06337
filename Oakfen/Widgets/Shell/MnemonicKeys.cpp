#include "Oakfen/Widgets/Shell/MnemonicKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>
#include <utility>

#include "Oakfen/Widgets/Components/Mnemonics.h"

namespace oakfen {

namespace {

bool showsText(const QAbstractButton& button) {
    const auto* tool = qobject_cast<const QToolButton*>(&button);
    return !button.text().isEmpty() &&
           (tool == nullptr || tool->toolButtonStyle() != Qt::ToolButtonIconOnly);
}

/// The text of what a letter can lead to; empty for all else.
QString textOf(const QWidget& widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return showsText(*button) ? button->text() : QString();
    }
    const auto* label = qobject_cast<const QLabel*>(&widget);
    const QWidget* buddy = label != nullptr ? label->buddy() : nullptr;
    return buddy != nullptr && buddy->focusPolicy() != Qt::NoFocus ? label->text() : QString();
}

void setText(QWidget& widget, const QString& text) {
    if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
        button->setText(text);
    } else if (auto* label = qobject_cast<QLabel*>(&widget)) {
        label->setText(text);
    }
}

/// In the order in which they are read.
std::vector<QWidget*> placesIn(const QWidget& window) {
    std::vector<QWidget*> places;
    for (QWidget* each : window.findChildren<QWidget*>()) {
        if (each->window() == &window && each->isVisible() && mayHaveLetter(*each) &&
            !textOf(*each).isEmpty()) {
            places.push_back(each);
        }
    }
    return places;
}

/// The letters that open a menu of the window.
QString lettersOfMenus(const QWidget& window) {
    QString letters;
    for (const QMenuBar* bar : window.findChildren<QMenuBar*>()) {
        for (const QAction* action : bar->actions()) {
            if (const QChar letter = mnemonicOf(action->text()); !letter.isNull()) {
                letters.append(letter);
            }
        }
    }
    return letters;
}

/// A letter with Alt that leads nowhere; a field would take it as typed, over what it holds.
bool isStrayLetter(const QKeyEvent& key, const QWidget& widget) {
    const bool isOfMenu = qobject_cast<const QMenu*>(&widget) != nullptr ||
                          qobject_cast<const QMenuBar*>(&widget) != nullptr;
    return !isOfMenu && (key.modifiers() & ~Qt::ShiftModifier) == Qt::AltModifier &&
           !key.text().isEmpty() && key.text().front().isPrint();
}

} // namespace

MnemonicKeys::MnemonicKeys(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

bool MnemonicKeys::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr) {
        return QObject::eventFilter(watched, event);
    }
    if (event->type() == QEvent::KeyPress &&
        isStrayLetter(static_cast<const QKeyEvent&>(*event), *widget)) {
        return true;
    }
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool isPress = event->type() == QEvent::KeyPress;
        if (key.key() == Qt::Key_Alt) {
            isPress ? show(*widget->window()) : hide();
        } else if (!isPress && !marked_.empty() && key.modifiers().testFlag(Qt::AltModifier)) {
            // What the letter led to may have brought other fields.
            show(*widget->window());
        }
    } else if (event->type() == QEvent::WindowDeactivate) {
        // The key will be released elsewhere.
        hide();
    }
    return QObject::eventFilter(watched, event);
}

void MnemonicKeys::show(QWidget& window) {
    hide();
    const std::vector<QWidget*> places = placesIn(window);
    QStringList texts;
    for (const QWidget* each : places) {
        texts.append(withoutMnemonic(textOf(*each)));
    }
    const QList<qsizetype> letters = mnemonicPlaces(texts, lettersOfMenus(window));
    for (qsizetype each = 0; each < texts.size(); ++each) {
        QWidget* place = places[static_cast<std::size_t>(each)];
        marked_.push_back({place, textOf(*place), withMnemonic(texts[each], letters[each])});
        setText(*place, marked_.back().now);
    }
}

void MnemonicKeys::hide() {
    for (const Marked& each : std::exchange(marked_, {})) {
        // One that says something else by now has its text from elsewhere.
        if (each.widget != nullptr && textOf(*each.widget) == each.now) {
            setText(*each.widget, each.before);
        }
    }
}

} // namespace oakfen
