#pragma once

#include <QWidget>

class QToolButton;
class QVBoxLayout;

namespace oakfen {

/// A list of entries over the right side of a screen: a head that says what it lists, with a mark
/// that closes it, the list, and its foot. Escape closes it too.
class EntriesPanel : public QWidget {
    Q_OBJECT

public:
    /// Never wider than that, however large the window.
    EntriesPanel(const QString& title, int greatestWidth, QWidget* parent = nullptr);

    [[nodiscard]] int greatestWidth() const { return greatestWidth_; }
    [[nodiscard]] QToolButton* closeButton() const { return close_; }

Q_SIGNALS:
    /// The person has seen enough.
    void closed();

protected:
    /// Where what belongs to the head goes, below its title.
    [[nodiscard]] QVBoxLayout* head() const { return head_; }
    /// What stands below the head.
    void setBody(QWidget& list, QWidget& foot);

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int greatestWidth_;
    QToolButton* close_;
    QVBoxLayout* head_;
    QWidget* list_ = nullptr;
};

} // namespace oakfen
