#pragma once

#include <QHeaderView>

namespace oakfen {

/// The titles above a table's columns. Where a click sorts, the keyboard can too: the arrow keys
/// choose a title, the space bar and Return click it. What is dragged is no click.
class LedgerHeader final : public QHeaderView {
    Q_OBJECT

public:
    explicit LedgerHeader(QWidget* parent = nullptr);

    /// The title that the keyboard is at.
    [[nodiscard]] int currentSection() const { return current_; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    /// The arrow points down where the greatest or latest comes first.
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
    bool viewportEvent(QEvent* event) override;

private:
    void moveTo(int section);
    [[nodiscard]] QString nameOf(int section) const;
    /// The title, or what there is room for; nothing where that would say nothing.
    [[nodiscard]] QString shownTitle(const QString& title, int section) const;
    /// The title where it has no room to be read.
    [[nodiscard]] QString cutTitleAt(const QPoint& place) const;

    QPoint pressed_;
    bool wasClickable_ = false;
    int current_ = 0;
};

} // namespace oakfen
