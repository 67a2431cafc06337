#pragma once

#include <QFrame>
#include <string_view>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace oakfen {

/// A titled panel: an icon, if any, and the title, what belongs to it at the right of that line,
/// and the content beneath.
class Card final : public QFrame {
    Q_OBJECT

public:
    explicit Card(const QString& title, std::string_view symbolName = {},
                  QWidget* parent = nullptr);

    /// Puts the widget at the right of the title line.
    void setAccessory(QWidget* accessory);
    /// A few quiet words there.
    void setNote(const QString& note);
    /// A link there, which leads to what the card sums up; the help is its tooltip.
    QPushButton* addLink(const QString& title, const QString& help);
    /// How much room there is below the content: less under a chart or rows than under texts.
    void setFoot(int height);
    /// Lets the content reach the card's edges, as tables and lists of rows do.
    void fillToEdges();
    /// Where the card's own widgets go.
    [[nodiscard]] QVBoxLayout* content() const { return content_; }

private:
    QHBoxLayout* titleLine_;
    QVBoxLayout* content_;
    QLabel* note_ = nullptr;
};

} // namespace oakfen
