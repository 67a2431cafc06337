#pragma once

#include <QScrollArea>
#include <string_view>

class QHBoxLayout;
class QLabel;
class QToolButton;
class QVBoxLayout;

namespace oakfen {

/// A screen made of blocks beneath a title, which scrolls as a whole, title included.
class Page : public QScrollArea {
    Q_OBJECT

public:
    explicit Page(const QString& title, QWidget* parent = nullptr);
    ~Page() override;

    /// Another title than the page's name, as it is spoken.
    void setTitle(const QString& title);
    /// A line beneath the title; none while empty.
    void setDetail(const QString& detail);
    /// A tool right in the title's line.
    QToolButton* addTool(std::string_view symbolName, const QString& title, const QString& help);

    /// Where the blocks go, from top to bottom.
    [[nodiscard]] QVBoxLayout* column() const { return column_; }
    /// How wide the blocks are.
    [[nodiscard]] int columnWidth() const;

protected:
    /// The keyboard goes to the first of what is there.
    void focusInEvent(QFocusEvent* event) override;

private:
    /// What has the keyboard is seen.
    void bringIntoSight(QWidget* before, QWidget* now);

    QLabel* title_;
    QLabel* detail_;
    QHBoxLayout* titleLine_;
    QVBoxLayout* column_;
};

} // namespace oakfen
