#include "Oakfen/Widgets/Theme/ThemeColors.h"

namespace oakfen {

namespace {

struct Pair {
    QRgb light;
    QRgb dark;
};

Pair colors(ThemeColor role) {
    switch (role) {
    case ThemeColor::window:
        return {0xFFF6F7F8, 0xFF17191C};
    case ThemeColor::surface:
        return {0xFFFFFFFF, 0xFF1E2125};
    case ThemeColor::surfaceRaised:
        return {0xFFEDEFF1, 0xFF24282D};
    case ThemeColor::sheet:
        return {0xFFF6F7F8, 0xFF24282D};
    case ThemeColor::border:
        return {0xFFD9DCE0, 0xFF383D44};
    case ThemeColor::text:
        return {0xFF1B1F24, 0xFFE7E9EC};
    case ThemeColor::secondaryText:
        return {0xFF59616B, 0xFFA3ABB5};
    case ThemeColor::accent:
        return {0xFF0B6B5E, 0xFF52BBA9};
    case ThemeColor::onAccent:
        return {0xFFFFFFFF, 0xFF07231E};
    case ThemeColor::selection:
        return {0xFFCFE5E0, 0xFF23483F};
    case ThemeColor::onSelection:
        return {0xFF0D2B26, 0xFFEBF6F3};
    case ThemeColor::negative:
        return {0xFFB3261E, 0xFFFF938A};
    case ThemeColor::positive:
        return {0xFF176B2D, 0xFF77D394};
    case ThemeColor::warning:
        return {0xFF8F5200, 0xFFF0B55F};
    case ThemeColor::information:
        return {0xFF1B5BB8, 0xFF86B6F7};
    case ThemeColor::scrim:
        return {0x66101418, 0x8C000000};
    case ThemeColor::shadow:
        return {0x47101418, 0x66000000};
    }
    return {0xFF000000, 0xFFFFFFFF};
}

} // namespace

QColor themeColor(ThemeColor role, bool dark) {
    const Pair pair = colors(role);
    return QColor::fromRgba(dark ? pair.dark : pair.light);
}

QPalette themePalette(bool dark) {
    const auto color = [dark](ThemeColor role) { return themeColor(role, dark); };
    QPalette palette;
    palette.setColor(QPalette::Window, color(ThemeColor::window));
    palette.setColor(QPalette::WindowText, color(ThemeColor::text));
    palette.setColor(QPalette::Base, color(ThemeColor::surface));
    palette.setColor(QPalette::AlternateBase, color(ThemeColor::window));
    palette.setColor(QPalette::Text, color(ThemeColor::text));
    palette.setColor(QPalette::Button, color(ThemeColor::surfaceRaised));
    palette.setColor(QPalette::ButtonText, color(ThemeColor::text));
    palette.setColor(QPalette::BrightText, color(ThemeColor::onAccent));
    palette.setColor(QPalette::Highlight, color(ThemeColor::selection));
    palette.setColor(QPalette::HighlightedText, color(ThemeColor::onSelection));
    palette.setColor(QPalette::Link, color(ThemeColor::accent));
    palette.setColor(QPalette::LinkVisited, color(ThemeColor::accent));
    palette.setColor(QPalette::ToolTipBase, color(ThemeColor::surfaceRaised));
    palette.setColor(QPalette::ToolTipText, color(ThemeColor::text));
    palette.setColor(QPalette::PlaceholderText, color(ThemeColor::secondaryText));
    palette.setColor(QPalette::Light, color(ThemeColor::surface));
    palette.setColor(QPalette::Midlight, color(ThemeColor::surfaceRaised));
    palette.setColor(QPalette::Mid, color(ThemeColor::border));
    palette.setColor(QPalette::Dark, color(ThemeColor::border));
    palette.setColor(QPalette::Shadow, color(ThemeColor::border));

    QColor disabled = color(ThemeColor::secondaryText);
    disabled.setAlphaF(0.6F);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::HighlightedText, QPalette::Link}) {
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, color(ThemeColor::window));
    return palette;
}

QString themeStyleSheet(bool dark) {
    QString sheet = QStringLiteral(R"(
QToolTip { color: @text; background: @surfaceRaised; border: 1px solid @border; padding: 4px 6px; }

QMenuBar { background: @window; border-bottom: 1px solid @border; padding: 2px 4px; }
QMenuBar::item { padding: 4px 9px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected, QMenuBar::item:pressed { background: @selection; color: @onSelection; }
QMenu { background: @surface; border: 1px solid @border; padding: 4px; }
QMenu::item { padding: 5px 26px 5px 14px; border-radius: 4px; }
QMenu::item:selected { background: @selection; color: @onSelection; }
QMenu::item:disabled { color: @disabledText; }
QMenu::item:disabled:selected { background: transparent; }
QMenu::icon { padding-left: 10px; }
QMenu::separator { height: 1px; background: @border; margin: 4px 8px; }

QPushButton { background: @surface; border: 1px solid @border; border-radius: 5px;
    padding: 4px 14px; min-height: 19px; outline: none; }
QPushButton:hover { background: @surfaceRaised; }
QPushButton:pressed { background: @border; }
QPushButton:checked { background: @selection; color: @onSelection; border-color: @selection; }
QPushButton:focus { border-color: @accent; }
QPushButton:disabled { color: @disabledText; background: @window; }
QPushButton:default, QPushButton[prominent="true"] {
    background: @accent; color: @onAccent; border-color: @accent; }
QPushButton:default:hover, QPushButton[prominent="true"]:hover {
    background: @accentHover; border-color: @accentHover; }
QPushButton:default:focus, QPushButton[prominent="true"]:focus { border: 2px solid @focusRing;
    padding: 3px 13px; }
QPushButton:default:disabled, QPushButton[prominent="true"]:disabled {
    background: @surfaceRaised; color: @disabledText; border-color: @border; }
QPushButton[small="true"] { padding: 2px 11px; }
QPushButton[destructive="true"] { color: @negative; }
QPushButton[destructive="true"]:disabled { color: @disabledText; }
QPushButton[destructive="true"]:default { background: @negative; color: @surface;
    border-color: @negative; }
QPushButton[link="true"] { background: transparent; border: 1px solid transparent; color: @accent;
    padding: 3px 6px; text-align: left; }
QPushButton[cardLink="true"] { padding: 0px 1px; min-height: 18px; }
QPushButton[link="true"]:hover { background: @surfaceRaised; }
QPushButton[link="true"]:focus { border-color: @accent; }
QPushButton[link="true"]:disabled { color: @disabledText; background: transparent; }

QToolButton { background: transparent; border: 1px solid transparent; border-radius: 5px;
    padding: 3px; outline: none; }
QToolButton:hover { background: @hover; }
QToolButton:pressed, QToolButton:checked { background: @selection; }
QToolButton:focus { border-color: @accent; }
QToolButton::menu-indicator { image: none; }

QLineEdit { background: @surface; border: 1px solid @border; border-radius: 5px;
    padding: 3px 7px; min-height: 20px; }
QLineEdit:focus { border-color: @accent; }
QLineEdit[invalid="true"] { border-color: @negative; }
QLineEdit:disabled { background: @window; color: @disabledText; }
QComboBox QLineEdit, QAbstractSpinBox QLineEdit, QTableView QLineEdit { border: none;
    min-height: 0px; padding: 0px 3px; }
QAbstractSpinBox QLineEdit { padding: 0px 3px 0px 5px; }
QPlainTextEdit, QTextEdit { background: @surface; border: 1px solid @border; border-radius: 5px; }
QPlainTextEdit:focus, QTextEdit:focus { border-color: @accent; }

QHeaderView { background: @surface; }
QHeaderView::section { background: @surface; color: @secondaryText; border: none;
    border-bottom: 1px solid @border; padding: 5px 8px; }
QHeaderView::section:hover { color: @text; background: @window; }
QTableView[fillsCard="true"] QHeaderView::section:first { padding-left: 15px; }
QTableView[fillsCard="true"] QHeaderView::section:last { padding-left: 24px; }
QTableView { background: @surface; border: none; gridline-color: transparent; outline: none; }
QTableView::item { border: none; padding: 0px 8px; }

QListView { background: @surface; border: 1px solid @border; outline: none; }
QListView::item { min-height: 18px; padding: 3px 6px; border-radius: 4px; }
QListView::item:selected { background: @selection; color: @onSelection; }

#PickerList { border-radius: 5px; padding: 2px; }
#PickerList::item { min-height: 20px; padding: 3px 6px; border-radius: 4px; }
#PickerList::item:hover { background: @hover; }
#PickerList::item:selected { background: @selection; color: @onSelection; }
#PickerList::item:disabled { color: @secondaryText; background: transparent; }

QSplitter::handle { background: @border; }
QScrollBar { background: transparent; border: none; }
QScrollBar:vertical { width: 11px; }
QScrollBar:horizontal { height: 11px; }
QScrollBar::handle { background: @scrollHandle; border-radius: 3px; margin: 2px; }
QScrollBar::handle:hover { background: @secondaryText; }
QScrollBar::handle:vertical { min-height: 28px; }
QScrollBar::handle:horizontal { min-width: 28px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }

#Sidebar, #SidebarFooter, #SidebarList { background: @surfaceRaised; border: none; }
#SidebarFooter { border-top: 1px solid @border; }
#Cover { background: @window; }
#GatePanel { background: @surface; border: 1px solid @border; border-radius: 10px; }
#BudgetField { border: 1px solid @accent; border-radius: 5px; min-height: 0px;
    padding: 0px 4px; }
#BudgetField[invalid="true"] { border-color: @negative; }
#Card { background: @surface; border: 1px solid @border; border-radius: 6px; }
#BusyPill { background: @surface; border: 1px solid @border; border-radius: 17px; }
#Notice { background: @surfaceRaised; border: 1px solid @border; border-radius: 10px; }
)");
    const auto put = [&sheet](QLatin1String name, const QColor& color) {
        sheet.replace(name, color.name(QColor::HexArgb));
    };
    const auto color = [dark](ThemeColor role) { return themeColor(role, dark); };
    const auto faint = [&color](ThemeColor role, float alpha) {
        QColor result = color(role);
        result.setAlphaF(alpha);
        return result;
    };
    // Longer names first: "@surface" also begins "@surfaceRaised".
    put(QLatin1String("@surfaceRaised"), color(ThemeColor::surfaceRaised));
    put(QLatin1String("@surface"), color(ThemeColor::surface));
    put(QLatin1String("@window"), color(ThemeColor::window));
    put(QLatin1String("@border"), color(ThemeColor::border));
    put(QLatin1String("@text"), color(ThemeColor::text));
    put(QLatin1String("@secondaryText"), color(ThemeColor::secondaryText));
    put(QLatin1String("@disabledText"), faint(ThemeColor::secondaryText, 0.6F));
    put(QLatin1String("@accentHover"),
        dark ? color(ThemeColor::accent).lighter(112) : color(ThemeColor::accent).lighter(118));
    put(QLatin1String("@accent"), color(ThemeColor::accent));
    put(QLatin1String("@onAccent"), color(ThemeColor::onAccent));
    put(QLatin1String("@selection"), color(ThemeColor::selection));
    put(QLatin1String("@onSelection"), color(ThemeColor::onSelection));
    put(QLatin1String("@negative"), color(ThemeColor::negative));
    put(QLatin1String("@focusRing"),
        dark ? color(ThemeColor::text) : color(ThemeColor::accent).darker(170));
    put(QLatin1String("@hover"), faint(ThemeColor::secondaryText, 0.16F));
    put(QLatin1String("@scrollHandle"), faint(ThemeColor::secondaryText, 0.45F));
    for (int role = 0; role <= static_cast<int>(ThemeColor::information); ++role) {
        sheet += QStringLiteral("QLabel[textColor=\"%1\"] { color: %2; }\n")
                     .arg(role)
                     .arg(color(static_cast<ThemeColor>(role)).name());
    }
    return sheet;
}

} // namespace oakfen
