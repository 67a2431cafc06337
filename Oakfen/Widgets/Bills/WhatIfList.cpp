#include "Oakfen/Widgets/Bills/WhatIfList.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "Oakfen/Widgets/Bills/LineKey.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

WhatIfList::WhatIfList(BillsView& view, const Clock& clock, QWidget* parent)
    : QWidget(parent), view_(view), clock_(clock),
      planned_(new LineKey(tr("As planned"), static_cast<std::size_t>(ChartColor::blue), false)),
      tried_(new LineKey(tr("What if"), static_cast<std::size_t>(ChartColor::orange), true)),
      list_(new QVBoxLayout) {
    setAccessibleName(tr("What If"));
    setFixedWidth(usualWidth);
    auto* add = new QPushButton(tr("Add Entry"));
    add->setIcon(symbolIcon("plus", ThemeColor::accent));
    add->setAccessibleName(tr("Add Entry"));
    add->setAutoDefault(false);
    add->setToolTip(tr("Try out what a payment or an income would do"));
    Theme::setTrait(*add, "link");
    connect(add, &QPushButton::clicked, this, [this] { addEntry(); });
    add_ = add;
    auto* promise = new QLabel(tr("Only on this screen, never saved."));
    Theme::setText(*promise, TextStyle::caption, ThemeColor::secondaryText);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(planned_);
    column->addWidget(tried_);
    column->addSpacing(Theme::grid);
    column->addLayout(list_);
    column->addWidget(add_, 0, Qt::AlignLeft);
    column->addStretch(1);
    column->addWidget(promise);
    list_->setSpacing(0);
}

WhatIfRow* WhatIfList::makeRow(const BillsContent::TriedRow& content) {
    auto* row = new WhatIfRow(clock_, content, this);
    row->toggled = [this, id = row->id()](bool wantsOpen) {
        open(wantsOpen ? std::optional(id) : std::nullopt);
    };
    row->edited = [this](const WhatIfEntry& entry) { view_.changeTriedEntry(entry); };
    row->removed = [this, id = row->id()] { removeEntry(id); };
    return row;
}

void WhatIfList::showProjection(const BillsContent::Projection& projection) {
    planned_->showLowest(qt(projection.lowestPlanned));
    tried_->showLowest(qt(projection.lowestTried));
    std::vector<WhatIfRow*> rows;
    for (const BillsContent::TriedRow& content : projection.tried) {
        const auto known = std::ranges::find(rows_, content.entry.id, &WhatIfRow::id);
        if (known == rows_.end()) {
            rows.push_back(makeRow(content));
            list_->addWidget(rows.back());
        } else {
            rows.push_back(*known);
            rows.back()->showContent(content);
            rows_.erase(known);
        }
    }
    for (WhatIfRow* gone : rows_) {
        // Later: its own button may be what was pressed.
        gone->hide();
        list_->removeWidget(gone);
        gone->deleteLater();
    }
    rows_ = std::move(rows);
    for (WhatIfRow* row : rows_) {
        row->setOpen(openID_ == row->id());
    }
    // New rows were made after it.
    add_->raise();
    if (!rows_.empty()) {
        rows_.back()->putBefore(*add_);
    }
}

void WhatIfList::addEntry() {
    openID_ = view_.addTriedEntry();
    open(openID_);
}

void WhatIfList::removeEntry(const UUID& id) {
    view_.removeTriedEntry(id);
    add_->setFocus(Qt::OtherFocusReason);
}

void WhatIfList::open(const std::optional<UUID>& id) {
    openID_ = id;
    for (WhatIfRow* row : rows_) {
        row->setOpen(openID_ == row->id());
    }
}

} // namespace oakfen
