#pragma once

#include <QToolButton>

namespace oakfen {

/// A tool in the title's line of a page: an icon, its text, and a mark behind it where it opens a
/// menu. What it shows begins and ends at its edges, so that it is in line with what stands
/// beneath.
class PageTool final : public QToolButton {
    Q_OBJECT

public:
    using QToolButton::QToolButton;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace oakfen
