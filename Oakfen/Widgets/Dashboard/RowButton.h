#pragma once

#include <QAbstractButton>

class QHBoxLayout;

namespace oakfen {

/// A row of a card that leads somewhere: whatever it is made of acts as one button. One that is not
/// enabled shows its row and leads nowhere.
class RowButton final : public QAbstractButton {
    Q_OBJECT

public:
    explicit RowButton(int height, QWidget* parent = nullptr);

    /// Where the row's parts go, from left to right; they take no clicks.
    [[nodiscard]] QHBoxLayout* line() const { return line_; }
    /// Whether it leads somewhere.
    void setLeadsOn(bool leadsOn);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    QHBoxLayout* line_;
};

} // namespace oakfen
