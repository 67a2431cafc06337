#include "Oakfen/Widgets/Components/TableModel.h"

#include <unordered_map>
#include <utility>

#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

std::size_t place(int number) {
    return static_cast<std::size_t>(number);
}

/// A mark's or a tick's meaning is our own word; other tooltips show texts of people and banks.
QString toolTipOf(const Cell& cell) {
    const bool isMark = cell.tick || !cell.symbolName.empty();
    return cell.toolTip.empty() && isMark ? qt(cell.spoken) : plainToolTip(qt(cell.toolTip));
}

} // namespace

TableModel::TableModel(std::shared_ptr<const TableContent> content, QObject* parent)
    : QAbstractTableModel(parent), content_(std::move(content)) {}

void TableModel::show(std::shared_ptr<const TableContent> content) {
    if (content == content_) {
        return;
    }
    lastCell_ = {};
    if (content->columnCount() != content_->columnCount()) {
        beginResetModel();
        content_ = std::move(content);
        endResetModel();
        return;
    }
    const std::shared_ptr<const TableContent> earlier = content_;
    const TableChanges changes = changesBetween(*earlier, *content);
    if (changes.isRearranged) {
        rearrange(std::move(content));
    } else {
        replaceRuns(std::move(content), changes);
    }
    if (changes.changed) {
        Q_EMIT dataChanged(index(static_cast<int>(changes.changed->first), 0),
                           index(static_cast<int>(changes.changed->last), columnCount() - 1));
    }
    if (!hasSameHeads(*earlier, *content_)) {
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    }
}

void TableModel::replaceRuns(std::shared_ptr<const TableContent> content,
                             const TableChanges& changes) {
    seam_ = {.earlier = std::exchange(content_, std::move(content))};
    for (const TableChanges::Run& run : changes.runs) {
        seam_.row = run.to;
        seam_.earlierRow = run.from;
        const int first = static_cast<int>(run.to);
        if (run.removed > 0) {
            beginRemoveRows({}, first, first + static_cast<int>(run.removed) - 1);
            seam_.earlierRow += run.removed;
            lastCell_ = {};
            endRemoveRows();
        }
        if (run.inserted > 0) {
            beginInsertRows({}, first, first + static_cast<int>(run.inserted) - 1);
            seam_.row += run.inserted;
            lastCell_ = {};
            endInsertRows();
        }
    }
    seam_ = {};
    lastCell_ = {};
}

void TableModel::rearrange(std::shared_ptr<const TableContent> content) {
    // With this hint the header keeps its columns' widths whatever becomes of the rows.
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::unordered_map<UUID, int> rows;
    for (const QModelIndex& each : before) {
        rows.try_emplace(id(each.row()), -1);
    }
    const auto earlier = std::exchange(content_, std::move(content));
    lastCell_ = {};
    for (std::size_t row = 0; !rows.empty() && row < content_->rowCount(); ++row) {
        if (const auto found = rows.find(content_->id(row));
            found != rows.end() && found->second < 0) {
            found->second = static_cast<int>(row);
        }
    }
    QModelIndexList after;
    for (const QModelIndex& each : before) {
        const auto found = rows.find(earlier->id(place(each.row())));
        after << (found->second < 0 ? QModelIndex() : index(found->second, each.column()));
    }
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

UUID TableModel::id(int row) const {
    const Place shown = placeOf(row);
    return shown.content.id(shown.row);
}

int TableModel::rowOf(const UUID& id) const {
    for (std::size_t row = 0; row < content_->rowCount(); ++row) {
        if (content_->id(row) == id) {
            return static_cast<int>(row);
        }
    }
    return -1;
}

int TableModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) {
        return 0;
    }
    const std::size_t count = seam_.earlier == nullptr
                                  ? content_->rowCount()
                                  : seam_.row + seam_.earlier->rowCount() - seam_.earlierRow;
    return static_cast<int>(count);
}

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(content_->columnCount());
}

TableModel::Place TableModel::placeOf(int row) const {
    if (seam_.earlier != nullptr && place(row) >= seam_.row) {
        return {*seam_.earlier, place(row) - seam_.row + seam_.earlierRow};
    }
    return {*content_, place(row)};
}

const Cell& TableModel::cell(const QModelIndex& index) const {
    if (lastCell_.index != index) {
        const Place shown = placeOf(index.row());
        lastCell_ = {index, shown.content.cell(shown.row, place(index.column()))};
    }
    return lastCell_.cell;
}

bool TableModel::isEditable(const QModelIndex& index) const {
    const Place shown = placeOf(index.row());
    return shown.content.head(place(index.column())).isEditable &&
           shown.content.kind(shown.row) == RowKind::entry;
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return qt(cell(index).text);
    case Qt::EditRole: {
        const Place shown = placeOf(index.row());
        return qt(shown.content.typedText(shown.row, place(index.column())));
    }
    case Qt::AccessibleTextRole:
        return qt(cell(index).spoken.empty() ? cell(index).text : cell(index).spoken);
    case Qt::AccessibleDescriptionRole:
        return qt(cell(index).description);
    case Qt::ToolTipRole:
        return toolTipOf(cell(index));
    case Qt::CheckStateRole:
        if (cell(index).tick) {
            return static_cast<int>(*cell(index).tick ? Qt::Checked : Qt::Unchecked);
        }
        return {};
    case LedgerDelegate::ToneRole:
        return static_cast<int>(cell(index).tone);
    case LedgerDelegate::FiguresRole:
        return content_->isOfFigures(place(index.column()));
    case LedgerDelegate::DetailRole:
        return qt(cell(index).detail);
    case LedgerDelegate::KeepsDetailRole:
        return cell(index).keepsDetail;
    case LedgerDelegate::SymbolRole:
        return qt(cell(index).symbolName);
    case LedgerDelegate::StrongRole: {
        const Place shown = placeOf(index.row());
        return shown.content.kind(shown.row) != RowKind::entry;
    }
    default:
        return {};
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    const ColumnHead& head = content_->head(place(section));
    switch (role) {
    case WholeTextsRole: {
        QStringList texts;
        for (const std::string& text : content_->wholeTexts(place(section))) {
            texts << qt(text);
        }
        return texts;
    }
    case EmptyRole:
        return content_->isEmpty(place(section));
    case Qt::DisplayRole:
        return qt(head.title);
    case Qt::AccessibleTextRole:
        return qt(head.name());
    case Qt::ToolTipRole:
        return head.isSortable ? tr("Click to sort") : QString();
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(
            (content_->isOfFigures(place(section)) ? Qt::AlignRight : Qt::AlignLeft) |
            Qt::AlignVCenter);
    default:
        return {};
    }
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const Place shown = placeOf(index.row());
    if (shown.content.kind(shown.row) == RowKind::section) {
        // The arrow keys pass it by.
        return Qt::NoItemFlags;
    }
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    return isEditable(index) ? usual | Qt::ItemIsEditable : usual;
}

bool TableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid() || !isEditable(index) || !edited) {
        return false;
    }
    // The toolkit hands back what nobody has touched, too. What is shown may be rounded.
    if (value.toString() == data(index, Qt::EditRole).toString()) {
        return true;
    }
    edited(id(index.row()), place(index.column()), utf8(value.toString()));
    return true;
}

} // namespace oakfen
