#pragma once

#include <QWidget>

#include "Oakfen/Widgets/Components/FigureFit.h"
#include "Oakfen/Widgets/Components/LabelledFigure.h"

namespace oakfen {

/// A label at the left and its amount at the right. The amount takes a line of its own where both
/// don't fit on one, and is told in few characters where no line holds it whole; then the tooltip
/// tells it.
class FigureLine final : public QWidget {
    Q_OBJECT

public:
    FigureLine(const QString& label, TextStyle labelStyle, TextStyle amountStyle,
               ThemeColor labelRole, QWidget* parent = nullptr);

    /// Shows another amount.
    void setFigure(const FigureTexts& texts, TextTone tone);
    [[nodiscard]] const LabelledFigure& parts() const { return parts_; }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();
    [[nodiscard]] TitledFigureLayout layOut(int width) const;
    [[nodiscard]] int lineHeight() const;

    TextStyle labelStyle_;
    TextStyle amountStyle_;
    LabelledFigure parts_;
    FigureTexts texts_;
    TextTone tone_ = TextTone::primary;
};

} // namespace oakfen
