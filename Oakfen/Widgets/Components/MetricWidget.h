#pragma once

#include <QWidget>

#include "Oakfen/Widgets/Components/LabelledFigure.h"

namespace oakfen {

/// A caption in capitals with a figure in even digits beneath it.
class MetricWidget final : public QWidget {
public:
    explicit MetricWidget(const Metric& metric, QWidget* parent = nullptr);

    /// Shows another figure.
    void setMetric(const Metric& metric);

private:
    LabelledFigure figure_;
};

} // namespace oakfen
