#pragma once

#include <QAbstractButton>
#include <QIcon>
#include <string_view>

namespace oakfen {

/// A card to press: an icon, a title and a line that says what it leads to.
class StepButton final : public QAbstractButton {
    Q_OBJECT

public:
    explicit StepButton(QWidget* parent);

    void showStep(std::string_view symbolName, const QString& title, const QString& detail);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon icon_;
    QString detail_;
};

} // namespace oakfen
