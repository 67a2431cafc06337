#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <QTimer>
#include <optional>

namespace oakfen {

class TableModel;

/// The program's table: rows of one height, whole rows selected, no grid, one column that takes the
/// room that is left, and column widths that are remembered. Whatever these are, a column is as
/// wide as the texts that its model never wants cut. Commands are about the selected rows, wherever
/// the ring of the keyboard is.
class LedgerTable final : public QTableView {
    Q_OBJECT

public:
    explicit LedgerTable(QWidget* parent = nullptr);
    ~LedgerTable() override;

    /// A column that gives way when the window is narrow, and how narrow it may become.
    struct YieldingColumn {
        int column = 0;
        int least = 0;
    };

    /// Sets the widths of the model's columns: those that the person gave them last, else these.
    /// The column `stretched` takes what is left. Where not all have room, columns in which there
    /// is nothing become narrower first, then the `yielding` ones, and last those that the person
    /// gave their width; the table scrolls only when that is not enough.
    void setColumnWidths(const QString& stateKey, const QList<int>& widths, int stretched,
                         const QList<YieldingColumn>& yielding = {});

    /// Shows the model, with the widths and the searched column that its columns declare.
    void setTable(TableModel& model, const QString& stateKey);

    /// Shows a column, or gives its room to the others while it has nothing to show.
    void setColumnShown(int column, bool isShown);

    /// The column that is searched for what the person types into the table.
    void setSearchColumn(int column) { searchColumn_ = column; }
    /// Whether the next letter goes on with such a search.
    [[nodiscard]] bool isSearching() const;
    void keyboardSearch(const QString& text) override;

    /// The row that a command is about that needs one: the current row where it is selected, else
    /// the first of the selected ones; -1 when none is.
    [[nodiscard]] int targetRow() const;
    /// Whether that row can be seen.
    [[nodiscard]] bool isTargetInSight() const;
    void bringTargetIntoSight();
    /// Makes the row the current one, selects it alone and scrolls to it. What is selected with
    /// Shift afterwards begins there.
    void goTo(int row);
    /// The same for the row that is the current one already.
    void selectCurrentRow();

    /// Draws a line above the row, which sets what comes after it apart.
    void setDivider(std::optional<int> row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    /// Moves to the first or last row or by a page, and selects.
    void jump(const QKeyEvent& event);
    [[nodiscard]] bool isSelectedAlone(int row) const;
    void paintDivider(QPainter& painter, int right) const;

    /// What the person has made of a column's edge.
    void takeWidth(int column, int before, int after);
    /// Fits the columns into the table. The one that the person drags keeps its width.
    void fitColumns(int dragged = -1);
    [[nodiscard]] QList<int> fittedWidths(int dragged) const;
    /// Takes what is lacking from the columns, from each its share of what they can spare; returns
    /// what is still lacking.
    int narrow(QList<int>& widths, const QList<YieldingColumn>& columns, int lack) const;
    /// Whether the person gave the column its width.
    [[nodiscard]] bool isChosen(int column) const {
        return widths_[column] != usualWidths_[column];
    }
    void measureColumns();
    void restoreColumnWidths();
    void saveColumnWidths() const;

    QString stateKey_;
    // As the columns declare them, and as they are wanted.
    QList<int> usualWidths_;
    QList<int> widths_;
    QList<int> leastWidths_;
    QList<bool> areEmpty_;
    int stretched_ = -1;
    QList<YieldingColumn> yielding_;
    int searchColumn_ = -1;
    /// While the toolkit is led to a row.
    QModelIndex goal_;
    std::optional<int> divider_;
    QElapsedTimer sinceTyped_;
    bool isFitting_ = false;
    QTimer saveTimer_;
};

} // namespace oakfen
