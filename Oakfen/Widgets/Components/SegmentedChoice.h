#pragma once

#include <QWidget>
#include <functional>

class QButtonGroup;

namespace oakfen {

/// A choice among a few words that stand side by side. Tab comes to the chosen one; the arrow keys
/// choose the next at once, and stop at the ends.
class SegmentedChoice final : public QWidget {
    Q_OBJECT

public:
    SegmentedChoice(const QString& title, const QStringList& choices, QWidget* parent = nullptr);

    /// What it is a choice of.
    void setTitle(const QString& title);

    [[nodiscard]] int choice() const;
    void choose(int choice);

    /// Called when the person has chosen.
    std::function<void()> chosen = [] {};

protected:
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The toolkit does so itself, but only once one of the words has had the keyboard.
    void letTabComeToChosen();
    /// Chooses the word that many places further, if there is one.
    void step(int places);

    QButtonGroup* buttons_;
};

} // namespace oakfen
