#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QPushButton;

namespace oakfen {

class ElidedLabel;

/// A quiet line in a sheet about something that the person may have missed, with a button where it
/// can be mended at once. There while it has something to say.
class HintRow final : public QWidget {
public:
    explicit HintRow(QWidget* parent = nullptr);

    /// Shows the sentence, and the button unless its title is empty. Without a sentence the line is
    /// hidden.
    void showHint(const QString& sentence, const QString& buttonTitle = {});

    [[nodiscard]] QLabel* sentence() const;
    [[nodiscard]] QPushButton* button() const { return button_; }

    /// Called when the button is pressed.
    std::function<void()> pressed = [] {};

private:
    ElidedLabel* sentence_;
    QPushButton* button_;
};

} // namespace oakfen
