#pragma once

#include <QAbstractButton>

namespace oakfen {

/// A switch: on with its knob at the right. The title stands before it.
class SwitchButton final : public QAbstractButton {
    Q_OBJECT

public:
    explicit SwitchButton(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace oakfen
