#pragma once

#include <QIcon>
#include <QWidget>
#include <string_view>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

/// One icon, painted afresh in the colour that its role has at that moment. Decoration: it tells a
/// screen reader nothing.
class SymbolLabel final : public QWidget {
    Q_OBJECT

public:
    SymbolLabel(std::string_view symbolName, int size, ThemeColor role, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon icon_;
};

} // namespace oakfen
