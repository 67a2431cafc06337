#include "Oakfen/Widgets/Theme/ProgramIcon.h"

#include <QPainter>
#include <QSvgRenderer>

// Outside of any namespace: the name of its function must be the global one.
static void registerPictures() {
    Q_INIT_RESOURCE(symbols);
}

namespace oakfen {

namespace {

struct Picture {
    const char* path;
    int side;
};

constexpr Picture pictures[] = {
    {":/icon/oakfen-16.svg", 16}, {":/icon/oakfen-24.svg", 24}, {":/icon/oakfen-32.svg", 32},
    {":/icon/oakfen-48.svg", 48}, {":/icon/oakfen.svg", 64},    {":/icon/oakfen.svg", 128},
    {":/icon/oakfen.svg", 256},
};

QPixmap drawn(const Picture& picture) {
    QPixmap pixmap(picture.side, picture.side);
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(QString::fromLatin1(picture.path));
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

} // namespace

QIcon programIcon() {
    registerPictures();
    QIcon icon;
    for (const Picture& picture : pictures) {
        icon.addPixmap(drawn(picture));
    }
    return icon;
}

} // namespace oakfen
