#pragma once

#include <QWidget>

namespace oakfen {

/// What a line of a chart is, beside a piece of it, with its lowest figure.
class LineKey final : public QWidget {
    Q_OBJECT

public:
    /// Of the chart colour of that number; dashed or not.
    LineKey(const QString& title, std::size_t color, bool isDashed, QWidget* parent = nullptr);

    void showLowest(const QString& figure);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString title_;
    std::size_t color_;
    bool isDashed_;
    QString lowest_;
};

} // namespace oakfen
