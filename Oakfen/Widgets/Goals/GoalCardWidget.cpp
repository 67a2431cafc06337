#include "Oakfen/Widgets/Goals/GoalCardWidget.h"

#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Components/ElidedLabel.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Components/ProgressBar.h"
#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"

namespace oakfen {

namespace {

constexpr int padding = 2 * Theme::grid;
constexpr int tileSize = 5 * Theme::grid;
constexpr int signSize = 20;
constexpr int noteHeight = 20;
/// Left and right of a link's text, with the frame.
constexpr int linkPadding = 7;

QPushButton* makeButton(const QString& title, const QString& help) {
    auto* button = new QPushButton(title);
    button->setAutoDefault(false);
    button->setToolTip(help);
    return button;
}

} // namespace

/// The goal's sign on a tile. Decoration: it tells a screen reader nothing.
class GoalIcon final : public QWidget {
public:
    GoalIcon() { setFixedSize(tileSize, tileSize); }

    void showSymbol(const std::string& symbolName) {
        sign_ = symbolIcon(symbolName, ThemeColor::accent);
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::color(ThemeColor::surfaceRaised));
        painter.drawRoundedRect(rect(), Theme::cornerRadius, Theme::cornerRadius);
        constexpr int inset = (tileSize - signSize) / 2;
        sign_.paint(&painter, rect().adjusted(inset, inset, -inset, -inset));
    }

private:
    QIcon sign_;
};

/// How far the goal is.
class GoalBar final : public QWidget {
public:
    GoalBar() { setFixedHeight(Theme::grid); }

    void showProgress(double progress, bool isReached, const QString& percent) {
        progress_ = progress;
        isReached_ = isReached;
        setAccessibleName(QStringLiteral("Progress: ") + percent);
        setToolTip(accessibleName());
        update();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        drawProgress(painter, rect(), progress_,
                     isReached_ ? fillColor(TextTone::positive) : Theme::color(ThemeColor::accent));
    }

private:
    double progress_ = 0;
    bool isReached_ = false;
};

GoalCardWidget::GoalCardWidget(QWidget* parent)
    : QFrame(parent), icon_(new GoalIcon),
      name_(new ElidedLabel(TextStyle::bodyStrong, ThemeColor::text)),
      targetDate_(new ElidedLabel(TextStyle::caption, ThemeColor::secondaryText)),
      edit_(makeButton(tr("Edit"), tr("Change this goal"))),
      saved_(new MoneyLabel(TextStyle::figure)), target_(new MoneyLabel), percent_(new MoneyLabel),
      bar_(new GoalBar), party_(new SymbolLabel("party.popper", padding, ThemeColor::positive)),
      note_(new QLabel),
      contribute_(makeButton(tr("Contribute"), tr("Put money aside, or take some back"))) {
    // What the theme draws the panel by.
    setObjectName(QStringLiteral("Card"));
    Theme::setTrait(*edit_, "link");
    Theme::setText(*note_, TextStyle::caption, ThemeColor::secondaryText);
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    note_->setMinimumWidth(1);
    layOut();
}

void GoalCardWidget::layOut() {
    auto* column = new QVBoxLayout(this);
    // The link's text, not its frame, ends where the rest does.
    column->setContentsMargins(padding, padding, padding - linkPadding, padding);
    column->setSpacing(2 * Theme::grid);
    column->addLayout(makeHead());
    auto* body = new QVBoxLayout;
    body->setContentsMargins(0, 0, linkPadding, 0);
    body->setSpacing(Theme::grid);
    body->addLayout(makeFigures());
    body->addWidget(bar_);
    auto* line = new QHBoxLayout;
    line->setSpacing(Theme::grid);
    // Of one height, with a note or without, so that cards side by side look alike.
    line->addStrut(noteHeight);
    line->addWidget(party_);
    line->addWidget(note_, 1);
    body->addLayout(line);
    column->addLayout(body);
    column->addStretch(1);
    column->addWidget(contribute_, 0, Qt::AlignLeft);
}

QLayout* GoalCardWidget::makeHead() {
    auto* head = new QHBoxLayout;
    head->setSpacing(Theme::grid * 3 / 2);
    head->addWidget(icon_, 0, Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    constexpr int overTheName = 3;
    constexpr int nameHeight = 20;
    texts->addSpacing(overTheName);
    name_->setMinimumHeight(nameHeight);
    texts->addWidget(name_);
    texts->addWidget(targetDate_);
    texts->addStretch(1);
    head->addLayout(texts, 1);
    head->addWidget(edit_, 0, Qt::AlignTop);
    return head;
}

QLayout* GoalCardWidget::makeFigures() {
    // The larger figure reaches further below the line that all three stand on.
    const auto below = [](TextStyle style) { return QFontMetrics(Theme::font(style)).descent(); };
    const int lift = below(TextStyle::figure) - below(TextStyle::body);
    auto* figures = new QHBoxLayout;
    figures->setSpacing(Theme::grid);
    const auto add = [&](MoneyLabel* figure, int lifted) {
        auto* place = new QVBoxLayout;
        place->addStretch(1);
        place->addWidget(figure);
        place->addSpacing(lifted);
        figures->addLayout(place);
    };
    add(saved_, 0);
    add(target_, lift);
    figures->addStretch(1);
    add(percent_, lift);
    percent_->setAlignment(Qt::AlignRight);
    return figures;
}

void GoalCardWidget::showCard(const GoalCard& card) {
    if (card == card_) {
        return;
    }
    card_ = card;
    icon_->showSymbol(card.symbolName);
    name_->showText(qt(card.name));
    targetDate_->showText(qt(card.targetDate));
    targetDate_->setVisible(!card.targetDate.empty());
    saved_->setMoney(card.saved);
    target_->setMoney({.text = card.target, .tone = TextTone::secondary});
    percent_->setMoney({.text = card.percent});
    bar_->showProgress(card.progress, card.isReached, qt(card.percent));
    party_->setVisible(card.isReached);
    Theme::setText(*note_, TextStyle::caption,
                   card.isReached ? ThemeColor::positive : ThemeColor::secondaryText);
    note_->setText(qt(card.note));
    tell();
}

void GoalCardWidget::tell() {
    QStringList parts{qt(card_.name), qt(card_.saved.text + " " + card_.target), qt(card_.percent),
                      qt(card_.targetDate), qt(card_.note)};
    parts.removeAll(QString());
    setAccessibleName(parts.join(QStringLiteral(", ")));
    edit_->setAccessibleName(tr("Edit %1").arg(qt(card_.name)));
    contribute_->setAccessibleName(tr("Contribute to %1").arg(qt(card_.name)));
}

} // namespace oakfen
