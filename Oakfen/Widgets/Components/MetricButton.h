#pragma once

#include <QAbstractButton>

#include "Oakfen/Views/Components/Components.h"

namespace oakfen {

/// A figure beneath its caption that leads to what it is made of.
class MetricButton final : public QAbstractButton {
    Q_OBJECT

public:
    explicit MetricButton(QWidget* parent = nullptr);

    /// Shows another figure.
    void setMetric(const Metric& metric);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Metric metric_;
};

} // namespace oakfen
