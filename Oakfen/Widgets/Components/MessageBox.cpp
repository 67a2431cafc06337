#include "Oakfen/Widgets/Components/MessageBox.h"

#include <QMessageBox>
#include <QTextEdit>

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

void showDetails(QMessageBox& box, const QString& details) {
    box.setDetailedText(details);
    if (auto* text = box.findChild<QTextEdit*>()) {
        // The toolkit leaves out those who have no mouse.
        text->setFocusPolicy(Qt::StrongFocus);
        text->setTabChangesFocus(true);
        text->setAccessibleName(QStringLiteral("Details"));
    }
}

} // namespace oakfen
