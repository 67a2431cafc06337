#include "Oakfen/Widgets/Register/RegisterFooterWidget.h"

#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

RegisterFooterWidget::RegisterFooterWidget(QWidget* parent)
    : QWidget(parent), layout_(new QHBoxLayout(this)) {
    layout_->setContentsMargins(2 * Theme::grid, Theme::grid, 2 * Theme::grid, Theme::grid);
    layout_->setSpacing(Theme::grid * 3 / 4);
    layout_->addStretch(1);
    selection_ = addFigure(layout_->count());
}

void RegisterFooterWidget::show(const RegisterFooter& footer, const std::string& currencyCode) {
    while (figures_.size() < footer.figures.size()) {
        // Each figure is a label, an amount and the blank after them.
        figures_.push_back(addFigure(static_cast<int>(figures_.size()) * 3));
        // Read last, as it stands last.
        selection_.label->raise();
        selection_.amount->raise();
    }
    for (std::size_t index = 0; index < figures_.size(); ++index) {
        const bool isShown = index < footer.figures.size();
        figures_[index].setVisible(isShown);
        if (isShown) {
            fill(figures_[index], footer.figures[index], currencyCode);
        }
    }
    selection_.setVisible(footer.selection.has_value());
    if (footer.selection) {
        fill(selection_, *footer.selection, currencyCode);
    }
}

void RegisterFooterWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Theme::color(ThemeColor::surfaceRaised));
    painter.setPen(Theme::color(ThemeColor::border));
    painter.drawLine(0, 0, width(), 0);
}

LabelledFigure RegisterFooterWidget::addFigure(int position) {
    const LabelledFigure figure{new QLabel(this), new MoneyLabel(TextStyle::bodyStrong, this)};
    figure.label->setTextFormat(Qt::PlainText);
    Theme::setText(*figure.label, TextStyle::body, ThemeColor::secondaryText);
    layout_->insertWidget(position, figure.label);
    layout_->insertWidget(position + 1, figure.amount);
    layout_->insertSpacing(position + 2, 2 * Theme::grid);
    return figure;
}

void RegisterFooterWidget::fill(const LabelledFigure& figure, const RegisterFooter::Figure& content,
                                const std::string& currencyCode) {
    figure.label->setText(qt(content.label));
    figure.setMoney(moneyText(content.amount, currencyCode));
}

} // namespace oakfen
