#pragma once

#include <QLabel>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

/// Plain text that wraps in whatever width its place has, and is always as high as its lines then
/// are: nothing of it is cut off, and it makes no place wider.
class FlowingLabel final : public QLabel {
    Q_OBJECT

public:
    FlowingLabel(TextStyle style, ThemeColor role, QWidget* parent = nullptr);

    void showText(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitHeight();
};

} // namespace oakfen
