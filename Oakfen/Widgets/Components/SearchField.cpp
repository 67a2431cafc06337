#include "Oakfen/Widgets/Components/SearchField.h"

#include <QAction>

#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

SearchField::SearchField(const QString& prompt, QWidget* parent) : QLineEdit(parent) {
    setPlaceholderText(prompt);
    setAccessibleName(tr("Search"));
    setClearButtonEnabled(true);
    addAction(symbolIcon("magnifyingglass", ThemeColor::secondaryText), LeadingPosition)
        ->setText(tr("Search"));
    // The toolkit's own button has a picture but no name.
    if (auto* clear = findChild<QAction*>(QStringLiteral("_q_qlineeditclearaction"))) {
        clear->setText(tr("Clear Search"));
    }
}

} // namespace oakfen
