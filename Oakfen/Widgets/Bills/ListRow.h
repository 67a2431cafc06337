#pragma once

#include <QPainter>
#include <QWidget>
#include <functional>
#include <vector>

#include "Oakfen/MenuEntry.h"
#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

/// A row of a long list that draws its own texts, since a label for each would make hundreds of
/// them. It is lit under the pointer, tells in a tooltip what it has no room for, and has a menu.
class ListRow : public QWidget {
    Q_OBJECT

public:
    /// The blank at either end of a row.
    static constexpr int padding = 2 * Theme::grid;

    explicit ListRow(QWidget* parent);

    /// The lines of the context menu.
    std::function<std::vector<MenuEntry>()> menu = [] { return std::vector<MenuEntry>(); };

protected:
    /// Draws all but the background.
    virtual void paintRow(QPainter& painter) = 0;
    /// Draws the text on one line, cut where it has no room.
    void drawLine(QPainter& painter, const QRect& rect, const QString& text, TextStyle style,
                  ThemeColor color);
    /// Draws the amount at the right.
    static void drawMoney(QPainter& painter, const QRect& rect, const MoneyText& money);

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// The texts that were drawn last and had no room, whole.
    QStringList cut_;
};

} // namespace oakfen
