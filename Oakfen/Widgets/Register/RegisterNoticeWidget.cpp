#include "Oakfen/Widgets/Register/RegisterNoticeWidget.h"

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

RegisterNoticeWidget::RegisterNoticeWidget(QWidget* parent)
    : QWidget(parent), text_(new QLabel), button_(new QPushButton(tr("Show"))) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(2 * Theme::grid, 0, 2 * Theme::grid, Theme::grid);
    row->setSpacing(Theme::grid);
    text_->setTextFormat(Qt::PlainText);
    Theme::setText(*text_, TextStyle::body, ThemeColor::secondaryText);
    row->addWidget(text_);
    button_->setToolTip(tr("End the filter and the search, and show it"));
    row->addWidget(button_);
    row->addStretch(1);
    connect(button_, &QPushButton::clicked, this, [this] { wanted(); });
    hide();
}

void RegisterNoticeWidget::showNotice(const std::optional<std::string>& notice) {
    text_->setText(qt(notice.value_or("")));
    setVisible(notice.has_value());
}

} // namespace oakfen
