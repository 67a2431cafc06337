#include "Oakfen/Widgets/Components/MessageBox.h"

#include <QMessageBox>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

QMessageBox* makeMessageBox(QWidget* parent, const QString& title, const QString& text) {
    auto* box = new QMessageBox(parent);
    box->setWindowTitle(QStringLiteral("Oakfen"));
    box->setWindowModality(Qt::WindowModal);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setText(title);
    box->setInformativeText(text);
    if (auto* heading = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        heading->setFont(Theme::font(TextStyle::headline));
    }
    if (auto* body = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
        body->setTextFormat(Qt::PlainText);
        body->setMinimumWidth(360);
    }
    return box;
}

} // namespace oakfen
