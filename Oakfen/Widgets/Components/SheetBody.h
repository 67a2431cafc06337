#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace oakfen {

/// What stands between the head and the buttons of a sheet: as large as what it holds, and scrolls
/// where the window has no room for that. What gets the keyboard is brought into sight.
class SheetBody final : public QScrollArea {
public:
    explicit SheetBody(QWidget* parent = nullptr);

    /// Where the sheet's own widgets go.
    [[nodiscard]] QVBoxLayout* content() const { return content_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;

private:
    QVBoxLayout* content_;
};

} // namespace oakfen
