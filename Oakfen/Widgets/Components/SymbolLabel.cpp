#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"

namespace oakfen {

SymbolLabel::SymbolLabel(std::string_view symbolName, int size, ThemeColor role, QWidget* parent)
    : QWidget(parent), icon_(symbolIcon(symbolName, role)) {
    setFixedSize(size, size);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SymbolLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    icon_.paint(&painter, rect());
}

} // namespace oakfen
