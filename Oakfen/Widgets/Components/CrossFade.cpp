#include "Oakfen/Widgets/Components/CrossFade.h"

#include <QPainter>
#include <QVariantAnimation>

namespace oakfen {

CrossFade::CrossFade(QWidget& over, std::chrono::milliseconds duration)
    : QWidget(&over), before_(over.grab()), fade_(new QVariantAnimation(this)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(over.rect());
    show();
    raise();
    fade_->setStartValue(1.0);
    fade_->setEndValue(0.0);
    fade_->setDuration(static_cast<int>(duration.count()));
    fade_->setEasingCurve(QEasingCurve::InOutQuad);
    connect(fade_, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(fade_, &QVariantAnimation::finished, this, &QObject::deleteLater);
    fade_->start();
}

void CrossFade::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(fade_->currentValue().toReal());
    painter.drawPixmap(0, 0, before_);
}

} // namespace oakfen
