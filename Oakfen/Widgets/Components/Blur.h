#pragma once

#include <QPixmap>

class QWidget;

namespace oakfen {

/// A picture of the widget as it looks now, blurred until no word or figure can be read. Of fewer
/// pixels than the widget has: draw it as large as the widget.
[[nodiscard]] QPixmap blurredPicture(QWidget& widget);

} // namespace oakfen
