#pragma once

#include <QString>

namespace oakfen {

/// The title with its first such letter as the one that, with Alt, stands for the whole. A letter
/// serves one thing in a window, and those of the menus are taken. Unchanged where it isn't there.
[[nodiscard]] inline QString withMnemonic(const QString& title, char letter) {
    QString marked = title;
    marked.replace(QLatin1Char('&'), QStringLiteral("&&"));
    if (const auto place = marked.indexOf(QLatin1Char(letter), 0, Qt::CaseInsensitive);
        place >= 0) {
        marked.insert(place, QLatin1Char('&'));
    }
    return marked;
}

} // namespace oakfen
