#pragma once

#include <QWidget>

#include "Oakfen/Views/Components.h"

class QLabel;

namespace oakfen {

class MoneyLabel;

/// A caption in capitals with a figure in even digits beneath it.
class MetricWidget final : public QWidget {
public:
    explicit MetricWidget(const Metric& metric, QWidget* parent = nullptr);

    /// Shows another figure.
    void setMetric(const Metric& metric);

private:
    QLabel* caption_;
    MoneyLabel* figure_;
};

} // namespace oakfen
