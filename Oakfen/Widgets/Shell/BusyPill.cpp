#include "Oakfen/Widgets/Shell/BusyPill.h"

#include <QBasicTimer>
#include <QTimer>
#include <chrono>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int greatestTextWidth = 480;

/// Eight fading strokes that turn.
class Spinner final : public QWidget {
public:
    explicit Spinner(QWidget* parent) : QWidget(parent) { setFixedSize(18, 18); }

protected:
    void showEvent(QShowEvent* event) override {
        QWidget::showEvent(event);
        constexpr int millisecondsBetweenSteps = 90;
        timer_.start(millisecondsBetweenSteps, this);
    }
    void hideEvent(QHideEvent* event) override {
        QWidget::hideEvent(event);
        timer_.stop();
    }
    void timerEvent(QTimerEvent* /*event*/) override {
        step_ = (step_ + 1) % strokes;
        update();
    }
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(width() / 2.0, height() / 2.0);
        for (int stroke = 0; stroke < strokes; ++stroke) {
            QColor color = Theme::color(ThemeColor::accent);
            const int age = (step_ - stroke + strokes) % strokes;
            color.setAlphaF(1.0F - (0.11F * static_cast<float>(age)));
            painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap));
            painter.save();
            painter.rotate(360.0 * stroke / strokes);
            painter.drawLine(QPointF(0, -4), QPointF(0, -7));
            painter.restore();
        }
    }

private:
    static constexpr int strokes = 8;

    /// Told of hiding more often than of showing, beneath something that is hidden.
    QBasicTimer timer_;
    int step_ = 0;
};

} // namespace

BusyPill::BusyPill(QWidget* parent)
    : QFrame(parent), label_(new QLabel(this)), delay_(new QTimer(this)) {
    setObjectName(QStringLiteral("BusyPill"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFixedHeight(36);
    label_->setTextFormat(Qt::PlainText);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Theme::grid * 2, 0, Theme::grid * 2, 0);
    row->setSpacing(Theme::grid);
    row->addWidget(new Spinner(this));
    row->addWidget(label_);

    delay_->setSingleShot(true);
    delay_->setInterval(std::chrono::milliseconds(150));
    connect(delay_, &QTimer::timeout, this, &QWidget::show);
    hide();
}

void BusyPill::setMessage(const std::optional<std::string>& message) {
    if (!message) {
        delay_->stop();
        hide();
        return;
    }
    // As wide as the text is, the pill would widen the window with it.
    label_->setText(
        label_->fontMetrics().elidedText(qt(*message), Qt::ElideMiddle, greatestTextWidth));
    setAccessibleName(qt(*message));
    if (!isVisible()) {
        delay_->start();
    }
}

} // namespace oakfen
