#include <QIconEngine>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <cmath>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

// The library is linked statically, so nothing registers its resources unless it is asked to. The
// macro must stand outside of every namespace.
static void registerSymbols() {
    static const bool registered = [] {
        Q_INIT_RESOURCE(symbols);
        return true;
    }();
    static_cast<void>(registered);
}

namespace oakfen {

namespace {

/// Paints one icon of the set in a colour of the theme, as the theme is at that moment.
class SymbolIconEngine final : public QIconEngine {
public:
    SymbolIconEngine(QString name, ThemeColor role) : name_(std::move(name)), role_(role) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const qreal scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, tinted(rect.size(), scale, color(mode)));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        return tinted(size, 1, color(mode));
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale) override {
        // The size is in pixels of the device already.
        QPixmap pixmap = tinted(size, 1, color(mode));
        pixmap.setDevicePixelRatio(scale);
        return pixmap;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new SymbolIconEngine(name_, role_); }

    [[nodiscard]] QString key() const override { return QStringLiteral("oakfen.symbol"); }

    [[nodiscard]] bool isNull() override { return false; }

private:
    [[nodiscard]] QColor color(QIcon::Mode mode) const {
        if (mode == QIcon::Selected && role_ == ThemeColor::text) {
            return Theme::color(ThemeColor::onSelection);
        }
        QColor result = Theme::color(role_);
        if (mode == QIcon::Disabled) {
            result.setAlphaF(0.4F);
        }
        return result;
    }

    [[nodiscard]] QPixmap tinted(const QSize& size, qreal scale, const QColor& color) const {
        const QSize pixels(static_cast<int>(std::lround(size.width() * scale)),
                           static_cast<int>(std::lround(size.height() * scale)));
        const QString cacheKey = QStringLiteral("symbol/%1/%2x%3/%4")
                                     .arg(name_)
                                     .arg(pixels.width())
                                     .arg(pixels.height())
                                     .arg(color.rgba(), 8, 16);
        QPixmap pixmap;
        if (!QPixmapCache::find(cacheKey, &pixmap)) {
            pixmap = drawn(pixels, color);
            QPixmapCache::insert(cacheKey, pixmap);
        }
        pixmap.setDevicePixelRatio(scale);
        return pixmap;
    }

    [[nodiscard]] QPixmap drawn(const QSize& pixels, const QColor& color) const {
        QPixmap pixmap(pixels);
        pixmap.fill(Qt::transparent);
        QSvgRenderer renderer(QStringLiteral(":/symbols/%1.svg").arg(name_));
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        QPainter painter(&pixmap);
        renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(pixels)));
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), color);
        return pixmap;
    }

    QString name_;
    ThemeColor role_;
};

} // namespace

QIcon symbolIcon(std::string_view symbolName, ThemeColor role) {
    registerSymbols();
    return QIcon(new SymbolIconEngine(qt(symbolName), role));
}

} // namespace oakfen
