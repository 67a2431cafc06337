#include "Oakfen/Widgets/Register/RegisterHeaderWidget.h"

#include <QComboBox>
#include <QShortcut>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "Oakfen/Widgets/Components/ElidedLabel.h"
#include "Oakfen/Widgets/Components/Panes.h"
#include "Oakfen/Widgets/Components/SearchField.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

// Wider than high, which sets the picture apart from the words.
constexpr QSize toolIconSize(20, 15);

} // namespace

RegisterHeaderWidget::RegisterHeaderWidget(RegisterView& view, QWidget* parent)
    : QWidget(parent), view_(view), title_(new ElidedLabel(TextStyle::title, ThemeColor::text)),
      subtitle_(new ElidedLabel(TextStyle::body, ThemeColor::secondaryText)),
      filter_(new QComboBox), search_(new SearchField(tr("Payee, category, memo, amount"))) {
    makePane(*this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * Theme::grid, Theme::grid * 3 / 2, 2 * Theme::grid, Theme::grid);
    layout->setSpacing(Theme::grid);

    auto* titleRow = new QHBoxLayout;
    titleRow->setSpacing(Theme::grid / 2);
    layout->addLayout(titleRow);
    auto* titles = new QVBoxLayout;
    titles->setSpacing(0);
    titles->addWidget(title_);
    titles->addWidget(subtitle_);
    titleRow->addLayout(titles, 1);
    addToolButtons(*titleRow);

    auto* toolRow = new QHBoxLayout;
    toolRow->setSpacing(Theme::grid);
    layout->addLayout(toolRow);
    setUpFilter();
    setUpSearch();
    auto* filterLabel = new QLabel(tr("Show"));
    Theme::setText(*filterLabel, TextStyle::body, ThemeColor::secondaryText);
    filterLabel->setBuddy(filter_);
    toolRow->addWidget(filterLabel);
    toolRow->addWidget(filter_);
    toolRow->addWidget(search_, 1);
    toolRow->addStretch(0);
}

void RegisterHeaderWidget::showContent(const RegisterContent& content) {
    title_->showText(qt(singleLine(content.title)));
    subtitle_->showText(qt(singleLine(content.subtitle)));
    const auto filter = std::ranges::find(allCases<RegisterFilter>, content.filter);
    filter_->setCurrentIndex(static_cast<int>(filter - allCases<RegisterFilter>.begin()));
    // What the person types there is the view's already, but for the place of the cursor.
    if (search_->text() != qt(content.searchText)) {
        search_->setText(qt(content.searchText));
    }
}

void RegisterHeaderWidget::setUpFilter() {
    for (const RegisterFilter each : allCases<RegisterFilter>) {
        filter_->addItem(qt(oakfen::title(each)));
    }
    filter_->setAccessibleName(tr("Show"));
    filter_->setToolTip(tr("Filter transactions"));
    connect(filter_, &QComboBox::activated, this, [this](int index) {
        view_.setFilter(allCases<RegisterFilter>[static_cast<std::size_t>(index)]);
    });
}

void RegisterHeaderWidget::setUpSearch() {
    search_->setToolTip(tr("Search this account (Ctrl+F); Esc clears, then goes back"));
    search_->setMaximumWidth(360);
    connect(search_, &QLineEdit::textChanged, this,
            [this](const QString& text) { view_.setSearchText(utf8(text)); });
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), search_);
    escape->setContext(Qt::WidgetShortcut);
    connect(escape, &QShortcut::activated, search_, [this] {
        if (search_->text().isEmpty()) {
            searchLeft();
        } else {
            search_->clear();
        }
    });
}

void RegisterHeaderWidget::addToolButtons(QLayout& row) {
    addToolButton(row, tr("Reconcile"), "checkmark.rectangle.stack",
                  tr("Reconcile with a statement"), [this] { view_.reconcile(); });
    addToolButton(row, tr("Import"), "square.and.arrow.down",
                  tr("Import a CSV, QIF, OFX or QFX statement"),
                  [this] { view_.importTransactions(); });
    addToolButton(row, tr("Edit Account"), "info.circle", tr("Account details"),
                  [this] { view_.editAccount(); });
    addToolButton(row, tr("New Transaction"), "plus", tr("New transaction (⌘N)"),
                  [this] { view_.newTransaction(); });
}

QToolButton* RegisterHeaderWidget::addToolButton(QLayout& row, const QString& text,
                                                 const char* symbolName, const QString& tooltip,
                                                 std::function<void()> action) {
    auto* button = new QToolButton;
    button->setText(text);
    button->setAccessibleName(text);
    button->setToolTip(tooltip);
    button->setIcon(symbolIcon(symbolName));
    button->setIconSize(toolIconSize);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::clicked, this, std::move(action));
    row.addWidget(button);
    return button;
}

} // namespace oakfen
