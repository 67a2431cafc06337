#pragma once

#include <QWidget>

#include "Oakfen/Views/Components/Components.h"

class QHBoxLayout;
class QPushButton;

namespace oakfen {

class DiscLabel;
class ElidedLabel;
class MoneyLabel;

/// A row of a list in a card: a mark, a title with a quiet line beneath it, an amount, and the
/// row's own buttons. It is no control by itself; a screen reader hears its texts as one sentence.
class TwoLineRow final : public QWidget {
    Q_OBJECT

public:
    /// The heights that rows have: in a card of the dashboard, and in a list by days.
    static constexpr int cardHeight = 42;
    static constexpr int listHeight = 44;

    TwoLineRow(int height, QWidget* parent = nullptr);

    /// Shows the mark; without this there is none.
    void showMark(std::string_view symbolName, TextTone tone, std::string_view spoken);
    void showTexts(const std::string& title, const std::string& detail,
                   TextTone detailTone = TextTone::secondary);
    void showAmount(const MoneyText& money);
    /// Appends a button behind the amount.
    QPushButton* addButton(const QString& title, const QString& help);
    /// Appends another widget behind the amount.
    void addWidget(QWidget& widget);

private:
    void tell();

    QHBoxLayout* line_;
    DiscLabel* disc_ = nullptr;
    ElidedLabel* title_;
    ElidedLabel* detail_;
    MoneyLabel* amount_;
    QString spokenMark_;
};

} // namespace oakfen
