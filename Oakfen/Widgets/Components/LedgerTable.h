#pragma once

#include <QTableView>
#include <QTimer>

namespace oakfen {

/// The program's table: rows of one height, whole rows selected, no grid, one column that takes the
/// room that is left, and column widths that are remembered.
class LedgerTable final : public QTableView {
    Q_OBJECT

public:
    explicit LedgerTable(QWidget* parent = nullptr);
    ~LedgerTable() override;

    /// Sets the widths of the model's columns: those that the person gave them last, else these.
    /// The column `stretched` takes what is left, but at least its own width.
    void setColumnWidths(const QString& stateKey, const QList<int>& widths, int stretched);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void stretchColumn();
    void saveColumnWidths() const;

    QString stateKey_;
    QList<int> widths_;
    int stretched_ = -1;
    bool isStretching_ = false;
    QTimer saveTimer_;
};

} // namespace oakfen
