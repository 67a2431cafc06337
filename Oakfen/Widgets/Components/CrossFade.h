#pragma once

#include <QPixmap>
#include <QWidget>
#include <chrono>

class QVariantAnimation;

namespace oakfen {

/// Lays a picture of how a widget looks at that moment over it, lets the picture fade, and deletes
/// itself, so that what changes underneath comes to light softly. Nothing has to wait for it: every
/// click goes through.
class CrossFade final : public QWidget {
    Q_OBJECT

public:
    /// Begins at once. Must be on the heap.
    explicit CrossFade(QWidget& over,
                       std::chrono::milliseconds duration = std::chrono::milliseconds(250));

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap before_;
    /// From opaque to clear.
    QVariantAnimation* fade_;
};

} // namespace oakfen
