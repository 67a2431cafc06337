#pragma once

#include <QFrame>
#include <string_view>

class QHBoxLayout;
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
    /// Where the card's own widgets go.
    [[nodiscard]] QVBoxLayout* content() const { return content_; }

private:
    QHBoxLayout* titleLine_;
    QVBoxLayout* content_;
};

} // namespace oakfen
