#include "Oakfen/Widgets/Components/Blur.h"

#include <QGraphicsBlurEffect>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QPainter>
#include <QWidget>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

/// In pixels of the widget.
constexpr qreal radius = 24;
/// So many pixels of the widget, each way, become one: sixteen times less work, and under such a
/// blur nobody can tell.
constexpr int reduction = 4;

} // namespace

QPixmap blurredPicture(QWidget& widget) {
    QPixmap small = widget.grab().scaled(widget.size() / reduction, Qt::IgnoreAspectRatio,
                                         Qt::SmoothTransformation);
    small.setDevicePixelRatio(1);
    QGraphicsScene scene;
    QGraphicsPixmapItem* item = scene.addPixmap(small);
    auto* effect = new QGraphicsBlurEffect;
    effect->setBlurRadius(radius / reduction);
    item->setGraphicsEffect(effect);

    QPixmap result(small.size());
    result.fill(Theme::color(ThemeColor::window));
    QPainter painter(&result);
    scene.render(&painter, result.rect(), small.rect());
    return result;
}

} // namespace oakfen
