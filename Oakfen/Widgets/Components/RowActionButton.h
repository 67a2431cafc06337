#pragma once

#include <QPushButton>

namespace oakfen {

/// A small button of a row in a list. What it does may move the following row into its place, so
/// the second half of a double click does nothing, wherever it lands: the person meant one row. Up
/// and Down lead to the same button of the rows above and below.
class RowActionButton final : public QPushButton {
    Q_OBJECT

public:
    RowActionButton(const QString& title, const QString& help, QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// The nearest such button above or below; null at the end of the list.
    [[nodiscard]] RowActionButton* neighbour(bool below) const;
};

} // namespace oakfen
