#include "Oakfen/Widgets/Components/PickerList.h"

#include <QAccessible>
#include <QScrollBar>
#include <QStandardItemModel>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

PickerList::PickerList(const QString& title, QWidget* parent)
    : QListView(parent), items_(new QStandardItemModel(this)) {
    setObjectName(QStringLiteral("PickerList"));
    setAccessibleName(title);
    setModel(items_);
    setFocusPolicy(Qt::NoFocus);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    connect(this, &QListView::clicked, this, [this](const QModelIndex& index) {
        if (const auto line = static_cast<std::size_t>(index.row()); lines_[line].canBeChosen()) {
            clickedLine(line);
        }
    });
}

void PickerList::setLines(std::vector<PickerLine> lines) {
    items_->clear();
    lines_ = std::move(lines);
    for (const PickerLine& line : lines_) {
        auto* item = new QStandardItem(qt(line.title));
        if (line.kind == PickerLine::Kind::header) {
            item->setFont(Theme::font(TextStyle::captionStrong));
        } else if (line.kind == PickerLine::Kind::creation) {
            item->setIcon(symbolIcon("plus", ThemeColor::accent));
        } else {
            item->setToolTip(plainToolTip(qt(line.title)));
        }
        item->setFlags(line.canBeChosen() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable
                                          : Qt::NoItemFlags);
        items_->appendRow(item);
    }
    scrollToTop();
}

void PickerList::showEvent(QShowEvent* event) {
    // What was laid out before had not got its style yet.
    doItemsLayout();
    QListView::showEvent(event);
}

std::optional<std::size_t> PickerList::current() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? std::nullopt
                              : std::optional(static_cast<std::size_t>(selected.first().row()));
}

void PickerList::goTo(std::optional<std::size_t> line) {
    if (!line) {
        selectionModel()->clear();
        return;
    }
    const int row = static_cast<int>(*line);
    const QModelIndex index = items_->index(row, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    if (std::none_of(lines_.begin(), lines_.begin() + row,
                     [](const PickerLine& each) { return each.canBeChosen(); })) {
        scrollToTop(); // with the header above it
    } else {
        scrollTo(index);
    }
    // Those who listen hear it, although the keyboard stays in the field.
    QAccessibleEvent heard(this, QAccessible::Focus);
    heard.setChild(row);
    QAccessible::updateAccessibility(&heard);
}

void PickerList::goToRow(std::optional<std::size_t> row) {
    const auto line = std::ranges::find_if(lines_, [&](const PickerLine& each) {
        return each.kind == PickerLine::Kind::choice && each.row == row;
    });
    goTo(line == lines_.end() ? std::nullopt
                              : std::optional(static_cast<std::size_t>(line - lines_.begin())));
}

bool PickerList::stepByKey(int key) {
    const int lineHeight = std::max(sizeHintForRow(0), 1);
    const int page = std::max(viewport()->height() / lineHeight - 1, 1);
    switch (key) {
    case Qt::Key_Down:
        step(1);
        return true;
    case Qt::Key_Up:
        step(-1);
        return true;
    case Qt::Key_PageDown:
        step(page);
        return true;
    case Qt::Key_PageUp:
        step(-page);
        return true;
    default:
        return false;
    }
}

void PickerList::step(int count) {
    const int direction = count < 0 ? -1 : 1;
    const int end = static_cast<int>(lines_.size());
    const auto from = current();
    int reached = from ? static_cast<int>(*from) : -1;
    int left = std::abs(count);
    for (int line = from ? reached + direction : (direction > 0 ? 0 : end - 1);
         line >= 0 && line < end && left > 0; line += direction) {
        if (lines_[static_cast<std::size_t>(line)].canBeChosen()) {
            reached = line;
            --left;
        }
    }
    if (reached >= 0) {
        goTo(static_cast<std::size_t>(reached));
    }
}

int PickerList::heightOf(int mostLines) const {
    int height = 2 * frameWidth() + contentsMargins().top() + contentsMargins().bottom();
    for (int row = 0; row < std::min(items_->rowCount(), mostLines); ++row) {
        height += sizeHintForRow(row);
    }
    return height;
}

int PickerList::neededWidth() const {
    return sizeHintForColumn(0) + 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
}

} // namespace oakfen
