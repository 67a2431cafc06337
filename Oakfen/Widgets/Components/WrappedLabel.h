#pragma once

#include <QLabel>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

/// Plain text in lines of a given width, always as high as it needs to be: a layout reckons the
/// height of wrapped text before it knows the width, and cuts lines off.
class WrappedLabel final : public QLabel {
    Q_OBJECT

public:
    WrappedLabel(TextStyle style, ThemeColor role, int width, QWidget* parent = nullptr);

    void showText(const QString& text);
};

} // namespace oakfen
