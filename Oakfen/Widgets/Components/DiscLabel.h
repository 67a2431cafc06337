#pragma once

#include <QIcon>
#include <QWidget>
#include <string_view>

#include "Oakfen/Views/Components/Components.h"

namespace oakfen {

/// A small sign on a disc in the colour of what it stands for. Decoration: it tells a screen reader
/// nothing.
class DiscLabel final : public QWidget {
    Q_OBJECT

public:
    explicit DiscLabel(QWidget* parent = nullptr);

    /// Of a name like "arrow.up.circle.fill" the disc is drawn by us, so that all look alike.
    void showMark(std::string_view symbolName, TextTone tone);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon sign_;
    TextTone tone_ = TextTone::secondary;
};

} // namespace oakfen
