#include "Oakfen/Widgets/Components/Page.h"

#include <QApplication>
#include <QFocusEvent>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Components/PageTool.h"
#include "Oakfen/Widgets/Components/Panes.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int margin = 2 * Theme::grid;
constexpr int titleHeight = 28;
constexpr int detailHeight = 20;

} // namespace

Page::Page(const QString& title, QWidget* parent)
    : QScrollArea(parent), title_(new QLabel), detail_(new QLabel), titleLine_(new QHBoxLayout) {
    setAccessibleName(title);
    // By a click beside what is on it; Tab goes on to that.
    setFocusPolicy(Qt::ClickFocus);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    verticalScrollBar()->setSingleStep(3 * Theme::grid);

    auto* body = new QWidget;
    // Shows what lies behind the page.
    body->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    column_ = new QVBoxLayout(body);
    column_->setContentsMargins(margin, margin, margin, margin);
    column_->setSpacing(margin);

    auto* header = new QVBoxLayout;
    header->setSpacing(0);
    header->addLayout(titleLine_);
    header->addWidget(detail_);
    column_->addLayout(header);

    titleLine_->setSpacing(margin);
    titleLine_->addWidget(title_, 1);
    title_->setTextFormat(Qt::PlainText);
    title_->setMinimumHeight(titleHeight);
    Theme::setText(*title_, TextStyle::title);
    for (QLabel* label : {title_, detail_}) {
        label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }
    detail_->setTextFormat(Qt::PlainText);
    detail_->setMinimumHeight(detailHeight);
    Theme::setText(*detail_, TextStyle::caption, ThemeColor::secondaryText);
    setTitle(title);
    setDetail({});
    setWidget(body);
    connect(qApp, &QApplication::focusChanged, this, &Page::bringIntoSight);
}

Page::~Page() {
    // What is on the page goes after it, and the keyboard with that.
    disconnect(qApp, nullptr, this, nullptr);
}

void Page::setTitle(const QString& title) {
    title_->setText(title);
}

void Page::setDetail(const QString& detail) {
    detail_->setText(detail);
    detail_->setVisible(!detail.isEmpty());
}

QToolButton* Page::addTool(std::string_view symbolName, const QString& title, const QString& help) {
    auto* tool = new PageTool;
    tool->setIcon(symbolIcon(symbolName, ThemeColor::text));
    tool->setText(title);
    tool->setAccessibleName(title);
    tool->setToolTip(help);
    tool->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    tool->setFocusPolicy(Qt::StrongFocus);
    titleLine_->addWidget(tool);
    return tool;
}

int Page::columnWidth() const {
    return viewport()->width() - (2 * margin);
}

void Page::bringIntoSight(QWidget* /*before*/, QWidget* now) {
    // The toolkit does so only when Tab comes from another place of the page. A table looks after
    // its own rows, and what is clicked is in sight: nothing moves under the pointer.
    const bool isClicked = QApplication::mouseButtons() != Qt::NoButton;
    const bool isTable = qobject_cast<QAbstractScrollArea*>(now) != nullptr;
    if (now != nullptr && !isClicked && !isTable && widget()->isAncestorOf(now)) {
        ensureWidgetVisible(now, 0, margin);
    }
}

void Page::focusInEvent(QFocusEvent* event) {
    if (event->reason() == Qt::OtherFocusReason) {
        // Quietly: nobody has gone to it yet.
        focusFirstIn(*this, Qt::OtherFocusReason);
    }
}

} // namespace oakfen
