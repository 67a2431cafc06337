#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <memory>

#include "Oakfen/Views/TableChanges.h"

namespace oakfen {

/// Hands the content of any table to the toolkit's views.
class TableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    /// What `headerData` returns beside the usual roles.
    enum HeaderRole {
        /// The texts of a column that are never cut, the widest ones among them.
        WholeTextsRole = Qt::UserRole + 1,
        /// Whether no row holds anything in the column.
        EmptyRole,
    };

    explicit TableModel(std::shared_ptr<const TableContent> content, QObject* parent = nullptr);

    /// Shows this content from now on. Views learn which rows came, went or changed, so that their
    /// selection and current cell stay with the records.
    void show(std::shared_ptr<const TableContent> content);

    [[nodiscard]] const TableContent& content() const { return *content_; }
    /// Which record the row shows; by value, since the content may be replaced at any notice.
    [[nodiscard]] UUID id(int row) const;
    /// Where the record is shown; -1 when it is not.
    [[nodiscard]] int rowOf(const UUID& id) const;

    /// Called with what was typed into a cell of an editable column.
    std::function<void(const UUID& id, std::size_t column, const std::string& text)> edited;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    /// While one content takes the other's place, the rows from here on are still the earlier ones.
    struct Seam {
        std::shared_ptr<const TableContent> earlier;
        std::size_t row = 0;
        std::size_t earlierRow = 0;
    };
    /// Which content has a row now, and where.
    struct Place {
        const TableContent& content;
        std::size_t row;
    };
    /// The cell that was asked for last: views ask for each of its sides in turn.
    struct LastCell {
        QModelIndex index;
        Cell cell;
    };

    void replaceRuns(std::shared_ptr<const TableContent> content, const TableChanges& changes);
    void rearrange(std::shared_ptr<const TableContent> content);
    [[nodiscard]] Place placeOf(int row) const;
    [[nodiscard]] const Cell& cell(const QModelIndex& index) const;
    [[nodiscard]] bool isEditable(const QModelIndex& index) const;

    std::shared_ptr<const TableContent> content_;
    Seam seam_;
    mutable LastCell lastCell_;
};

} // namespace oakfen
