#pragma once

#include "Oakfen/Views/Bills/BillsView.h"
#include "Oakfen/Widgets/Bills/WhatIfList.h"

class QLabel;

namespace oakfen {

class AccountPicker;
class Card;
class PlotChartWidget;
class SwitchButton;

/// The projected balance of an account, and what it would be with other entries.
class ProjectionCard final : public QWidget {
    Q_OBJECT

public:
    ProjectionCard(BillsView& view, const Clock& clock, QWidget* parent = nullptr);

    void showProjection(const BillsContent::Projection& projection);

private:
    [[nodiscard]] QWidget* makeTools();

    BillsView& view_;
    SwitchButton* triesOut_;
    AccountPicker* account_;
    PlotChartWidget* chart_;
    QLabel* nothing_;
    WhatIfList* whatIf_;
    std::vector<PickerRow> listed_;
};

} // namespace oakfen
