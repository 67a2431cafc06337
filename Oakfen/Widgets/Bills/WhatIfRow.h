#pragma once

#include <QAbstractButton>
#include <functional>

#include "Oakfen/Views/Bills/BillsContent.h"
#include "OakfenCore/Platform/Clock.h"

class QComboBox;
class QLineEdit;
class QToolButton;

namespace oakfen {

class AmountField;
class DateField;

/// An entry that is tried out, as one line; a press opens its fields.
class WhatIfLine final : public QAbstractButton {
    Q_OBJECT

public:
    explicit WhatIfLine(QWidget* parent = nullptr);

    void showContent(const BillsContent::TriedRow& content);
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    BillsContent::TriedRow content_;
};

/// The same entry, as a line that opens or as the fields that change it, with the button that takes
/// it away.
class WhatIfRow final : public QWidget {
    Q_OBJECT

public:
    /// The clock must outlive the row.
    WhatIfRow(const Clock& clock, const BillsContent::TriedRow& content, QWidget* parent = nullptr);

    [[nodiscard]] const UUID& id() const { return entry_.id; }
    /// Shows the entry as it is now; what is being typed stays.
    void showContent(const BillsContent::TriedRow& content);
    [[nodiscard]] bool isOpen() const { return fields_->isVisibleTo(this); }
    /// Shows the fields, with the keyboard in the first one, or the line.
    void setOpen(bool isOpen);
    /// Lets Tab come to its parts just before that widget.
    void putBefore(QWidget& next);

    /// The person wants the fields, or has done with them.
    std::function<void(bool wantsOpen)> toggled = [](bool) {};
    std::function<void(const WhatIfEntry&)> edited = [](const auto&) {};
    std::function<void()> removed = [] {};

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QWidget* makeFields();
    /// Shows the entry in the fields.
    void setValues();
    void takeFields();

    WhatIfEntry entry_;
    WhatIfLine* line_;
    QLineEdit* name_;
    AmountField* amount_;
    DateField* day_;
    QComboBox* frequency_;
    QWidget* fields_;
    QToolButton* remove_;
};

} // namespace oakfen
