#include "Oakfen/Widgets/TourStage.h"

#include <QApplication>
#include <QDialog>
#include <QPainter>
#include <QPixmap>
#include <utility>

#include "Oakfen/Widgets/BusyPill.h"
#include "Oakfen/Widgets/CrossFade.h"

namespace oakfen {

namespace {

const std::string tourFile = "/tour/Tarnwick/Library.tarnwick";

/// Lets layouts, queued work and paint requests settle.
void settle() {
    for (int round = 0; round < 5; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

} // namespace

TourStage::TourStage(const std::string& bytes) {
    if (!bytes.empty()) {
        files_.addFile(tourFile, bytes);
    }
    store_ = std::make_unique<LibraryStore>(
        tourFile,
        LibraryStoreServices{files_, scheduler_, clock_, defaults_, passwords_, legacyKeys_});
    environment_.reset(new AppEnvironment{*store_, appState_, panels_, defaults_, clock_,
                                          scheduler_, files_, dayChange_, busyWork_});
    window_ = std::make_unique<MainWindow>(*environment_, [] {});
    window_->show();
}

void TourStage::show(Library document) {
    store_->useNoPassword();
    store_->replaceLibrary(std::move(document), std::nullopt);
}

void TourStage::showBusy(const std::string& message) {
    appState_.setBusyMessage(message);
    window_->findChild<BusyPill*>()->show();
}

QPixmap TourStage::picture() {
    settle();
    // The picture is of the end of whatever fades.
    qDeleteAll(window_->findChildren<CrossFade*>());
    QPixmap picture = window_->grab();
    for (QDialog* dialog : window_->findChildren<QDialog*>()) {
        if (!dialog->isVisible()) {
            continue;
        }
        const QPixmap sheet = dialog->grab();
        const QSize size = sheet.deviceIndependentSize().toSize();
        const QRect place(
            QPoint((window_->width() - size.width()) / 2, (window_->height() - size.height()) / 2),
            size);
        QPainter painter(&picture);
        painter.fillRect(QRect(QPoint(), window_->size()), QColor(0, 0, 0, 80));
        painter.drawPixmap(place.topLeft(), sheet);
        painter.setPen(QColor(0, 0, 0, 120));
        painter.drawRect(place.adjusted(-1, -1, 0, 0));
    }
    return picture;
}

} // namespace oakfen
