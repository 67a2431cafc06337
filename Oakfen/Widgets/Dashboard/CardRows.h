#pragma once

#include <QWidget>
#include <functional>
#include <vector>

class QGridLayout;
class QLabel;

namespace oakfen {

/// Rows of a card below each other, with hairlines between them, or a few words where there are
/// none. They may flow into several columns, the first one filled first.
class CardRows final : public QWidget {
    Q_OBJECT

public:
    /// The words for a card without rows.
    explicit CardRows(const QString& emptyText, QWidget* parent = nullptr);

    /// Keeps as many rows as there are to show; makes those that are missing and drops the last.
    void setCount(std::size_t count, const std::function<QWidget*()>& make);
    [[nodiscard]] const std::vector<QWidget*>& rows() const { return rows_; }
    /// Leaves the lines between the rows out.
    void setPlain() { hasLines_ = false; }
    /// Gives the rows what room there is instead of leaving it below them.
    void spread() { areSpread_ = true; }
    void setColumnCount(int count);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void place();
    /// Where a row stands in the grid.
    struct Place {
        int row = 0;
        int column = 0;
        bool isLast = false;
    };
    [[nodiscard]] std::vector<Place> places() const;

    QGridLayout* grid_;
    QLabel* empty_;
    std::vector<QWidget*> rows_;
    int columnCount_ = 1;
    bool hasLines_ = true;
    bool areSpread_ = false;
};

} // namespace oakfen
