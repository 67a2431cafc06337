#pragma once

#include <QWidget>
#include <vector>

#include "Oakfen/Views/Register/RegisterContent.h"
#include "Oakfen/Widgets/Components/LabelledFigure.h"

class QHBoxLayout;

namespace oakfen {

/// The figures under a register.
class RegisterFooterWidget final : public QWidget {
public:
    explicit RegisterFooterWidget(QWidget* parent = nullptr);

    void show(const RegisterFooter& footer, const std::string& currencyCode);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    LabelledFigure addFigure(int position);
    static void fill(const LabelledFigure& figure, const RegisterFooter::Figure& content,
                     const std::string& currencyCode);

    QHBoxLayout* layout_;
    std::vector<LabelledFigure> figures_;
    LabelledFigure selection_;
};

} // namespace oakfen
