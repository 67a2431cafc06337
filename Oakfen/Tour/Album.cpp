#include "Oakfen/Tour/Album.h"

#include <QBuffer>
#include <QPixmap>

#include "Oakfen/Tour/TourStage.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "OakfenCore/Support/Files/SystemFileSystem.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"

namespace oakfen {

void Album::add(TourStage& stage, const std::string& name) const {
    const QPixmap picture = stage.picture();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    // Little compression: it takes longer than all the drawing.
    picture.save(&buffer, "PNG", 80);
    const std::string path = folder_ + "/" + name + (Theme::isDark() ? "-dark" : "-light") + ".png";
    writeOwnerOnly(systemFiles(), {bytes.constData(), static_cast<std::size_t>(bytes.size())},
                   path);
}

} // namespace oakfen
