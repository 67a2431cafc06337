#include "Oakfen/Widgets/Components/SheetBody.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

/// Below that nobody could work in it.
constexpr int leastHeight = 10 * Theme::grid;

} // namespace

SheetBody::SheetBody(QWidget* parent) : QScrollArea(parent), content_(new QVBoxLayout) {
    auto* holder = new QWidget;
    holder->setLayout(content_);
    content_->setContentsMargins(0, 0, 0, 0);
    content_->setSpacing(Theme::grid);
    setWidget(holder);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    // The sheet's own ground shows through.
    for (QWidget* each : {viewport(), holder}) {
        each->setAutoFillBackground(false);
    }
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*before*/, QWidget* now) {
        if (now != nullptr && isAncestorOf(now)) {
            ensureWidgetVisible(now, 0, Theme::grid);
        }
    });
}

QSize SheetBody::sizeHint() const {
    return widget()->sizeHint();
}

QSize SheetBody::minimumSizeHint() const {
    const QSize least = widget()->minimumSizeHint();
    return {least.width(), std::min(least.height(), leastHeight)};
}

bool SheetBody::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        // Rows came or went.
        updateGeometry();
    }
    return QScrollArea::event(event);
}

} // namespace oakfen
