#pragma once

#include <QString>

class QMessageBox;
class QWidget;

namespace oakfen {

/// A message modal to its window, without buttons yet, that deletes itself when closed. Both texts
/// are shown as they are, never as markup.
[[nodiscard]] QMessageBox* makeMessageBox(QWidget* parent, const QString& title,
                                          const QString& text);

/// Puts a text behind a button of the message that shows it; nothing while it is empty.
void showDetails(QMessageBox& box, const QString& details);

} // namespace oakfen
