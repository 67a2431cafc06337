#pragma once

#include <QLabel>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

/// One line of plain text that ends in dots where it has no room; then the tooltip tells it whole.
class ElidedLabel final : public QLabel {
    Q_OBJECT

public:
    ElidedLabel(TextStyle style, ThemeColor role, QWidget* parent = nullptr);

    void showText(const QString& text);
    [[nodiscard]] const QString& wholeText() const { return whole_; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void elide();

    QString whole_;
};

} // namespace oakfen
