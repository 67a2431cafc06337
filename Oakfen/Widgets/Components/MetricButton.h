#pragma once

#include <QAbstractButton>
#include <optional>

#include "Oakfen/Views/Components/Components.h"

namespace oakfen {

/// A figure beneath its caption that leads to what it is made of.
class MetricButton final : public QAbstractButton {
    Q_OBJECT

public:
    explicit MetricButton(QWidget* parent = nullptr);

    /// Shows another figure.
    void setMetric(const Metric& metric);
    /// Puts a square of the tone's fill before the caption, as the key to a chart beneath.
    void setKey(TextTone tone);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// What the key takes of the caption's line.
    [[nodiscard]] int keyRoom() const;

    Metric metric_;
    std::optional<TextTone> key_;
};

} // namespace oakfen
