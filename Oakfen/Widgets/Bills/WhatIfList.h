#pragma once

#include <optional>
#include <vector>

#include "Oakfen/Views/Bills/BillsView.h"
#include "Oakfen/Widgets/Bills/WhatIfRow.h"

class QVBoxLayout;

namespace oakfen {

class LineKey;

/// Beside the projection: what its two lines are, and the entries that are tried out.
class WhatIfList final : public QWidget {
    Q_OBJECT

public:
    static constexpr int usualWidth = 336;

    WhatIfList(BillsView& view, const Clock& clock, QWidget* parent = nullptr);

    void showProjection(const BillsContent::Projection& projection);

private:
    [[nodiscard]] WhatIfRow* makeRow(const BillsContent::TriedRow& content);
    void addEntry();
    void removeEntry(const UUID& id);
    /// Opens the fields of that entry, and closes those of another.
    void open(const std::optional<UUID>& id);

    BillsView& view_;
    const Clock& clock_;
    LineKey* planned_;
    LineKey* tried_;
    QVBoxLayout* list_;
    QWidget* add_;
    std::vector<WhatIfRow*> rows_;
    std::optional<UUID> openID_;
};

} // namespace oakfen
