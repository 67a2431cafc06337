#pragma once

#include <QToolButton>

#include "Oakfen/Views/Register/RegisterView.h"

namespace oakfen {

/// A button that names what a register is sorted by and offers the other orders in a menu, so that
/// the keyboard can do what a click on a header does.
class RegisterSortButton final : public QToolButton {
public:
    explicit RegisterSortButton(RegisterView& view, QWidget* parent = nullptr);

    /// Names the present order.
    void showOrder(const RegisterContent& content);

private:
    void fillMenu();

    RegisterView& view_;
};

} // namespace oakfen
