#pragma once

#include <functional>

#include "Oakfen/Views/Bills/BillsContent.h"
#include "Oakfen/Widgets/Bills/ListRow.h"

class QPushButton;

namespace oakfen {

class DiscLabel;

/// One due date of a reminder, with the buttons to enter or skip it where it is the next one.
class OccurrenceRow final : public ListRow {
    Q_OBJECT

public:
    enum class Action { enter, skip };

    OccurrenceRow(const BillsContent::Row& content, QWidget* parent);

    void showContent(const BillsContent::Row& content);
    [[nodiscard]] const BillsContent::Row& content() const { return content_; }
    /// Null where it can't be acted on.
    [[nodiscard]] QPushButton* button(Action action) const;

    /// As high as two lines of text need.
    [[nodiscard]] static int neededHeight();

    std::function<void(OccurrenceRow&, Action)> acted = [](auto&, auto) {};

protected:
    void paintRow(QPainter& painter) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QPushButton* makeButton(const QString& title, const QString& help, Action action);
    void showButtons();
    void placeButtons();
    /// From where the buttons stand.
    [[nodiscard]] int actionsLeft() const;

    BillsContent::Row content_;
    DiscLabel* disc_ = nullptr;
    QPushButton* enter_ = nullptr;
    QPushButton* skip_ = nullptr;
};

} // namespace oakfen
