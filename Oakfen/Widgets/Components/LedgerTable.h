#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <QTimer>

namespace oakfen {

class TableModel;

/// The program's table: rows of one height, whole rows selected, no grid, one column that takes the
/// room that is left, and column widths that are remembered. Whatever these are, a column is as
/// wide as the texts that its model never wants cut.
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
    /// The column `stretched` takes what is left. Where not all have room, the `yielding` ones
    /// become narrower; the table scrolls only when that is not enough.
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

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    /// Fits the columns into the table. The one that the person drags keeps its width.
    void fitColumns(int dragged = -1);
    [[nodiscard]] QList<int> fittedWidths(int dragged) const;
    void measureWholeTexts();
    void saveColumnWidths() const;

    QString stateKey_;
    QList<int> widths_;
    QList<int> leastWidths_;
    int stretched_ = -1;
    QList<YieldingColumn> yielding_;
    int searchColumn_ = -1;
    QElapsedTimer sinceTyped_;
    bool isFitting_ = false;
    QTimer saveTimer_;
};

} // namespace oakfen
