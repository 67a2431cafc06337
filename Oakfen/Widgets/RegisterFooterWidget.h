#pragma once

#include <QWidget>
#include <vector>

#include "Oakfen/Views/RegisterView.h"

class QHBoxLayout;
class QLabel;

namespace oakfen {

class MoneyLabel;

/// The figures under a register.
class RegisterFooterWidget final : public QWidget {
public:
    explicit RegisterFooterWidget(QWidget* parent = nullptr);

    void show(const RegisterFooter& footer, const std::string& currencyCode);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Figure {
        QLabel* label;
        MoneyLabel* amount;
    };

    Figure addFigure(int position);
    static void fill(const Figure& figure, const RegisterFooter::Figure& content,
                     const std::string& currencyCode);

    QHBoxLayout* layout_;
    std::vector<Figure> figures_;
    Figure selection_;
};

} // namespace oakfen
