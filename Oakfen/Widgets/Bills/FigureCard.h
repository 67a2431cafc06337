#pragma once

#include <QWidget>

#include "Oakfen/Views/Bills/BillsContent.h"

class QLabel;

namespace oakfen {

class Card;
class MoneyLabel;

/// One sum over the coming days.
class FigureCard final : public QWidget {
    Q_OBJECT

public:
    explicit FigureCard(const BillsContent::Figure& figure, QWidget* parent = nullptr);

    void showFigure(const BillsContent::Figure& figure);
    /// Puts the note beneath the figure, where the title's line has no room for it.
    void setNarrow(bool isNarrow);
    /// What it needs with the note in the title's line.
    [[nodiscard]] int wideWidth() const;

private:
    Card* card_;
    MoneyLabel* amount_;
    QLabel* below_;
    int titleWidth_;
    QString note_;
    bool isNarrow_ = false;
};

} // namespace oakfen
