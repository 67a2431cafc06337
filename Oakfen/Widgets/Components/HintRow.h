#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QPushButton;

namespace oakfen {

class FlowingLabel;

/// A quiet remark in a sheet about something that the person may have missed, with a button where
/// it can be mended at once. As high as its lines, and there while it has something to say.
class HintRow final : public QWidget {
public:
    explicit HintRow(QWidget* parent = nullptr);

    /// Shows the sentence, and the button unless its title is empty. Without a sentence the remark
    /// is hidden.
    void showHint(const QString& sentence, const QString& buttonTitle = {});

    [[nodiscard]] QLabel* sentence() const;
    [[nodiscard]] QPushButton* button() const { return button_; }

    /// Called when the button is pressed.
    std::function<void()> pressed = [] {};

    // The sentence sees to its height itself. What stands around it may be as low as ever.
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }

private:
    FlowingLabel* sentence_;
    QPushButton* button_;
};

} // namespace oakfen
