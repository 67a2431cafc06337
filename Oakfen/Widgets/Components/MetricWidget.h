#pragma once

#include <QWidget>

#include "Oakfen/Widgets/Components/LabelledFigure.h"

class QHBoxLayout;

namespace oakfen {

/// A caption in capitals with a figure in even digits beneath it.
class MetricWidget final : public QWidget {
public:
    explicit MetricWidget(const Metric& metric, QWidget* parent = nullptr);

    /// Shows another figure.
    void setMetric(const Metric& metric);
    /// Puts a square of the tone's fill before the caption, as the key to a chart beneath.
    void setKey(TextTone tone);

private:
    LabelledFigure figure_;
    QHBoxLayout* captionLine_;
};

} // namespace oakfen
