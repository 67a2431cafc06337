#pragma once

#include "Oakfen/Views/Register/SetCategoryView.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"

class QLineEdit;

namespace oakfen {

class PickerList;

/// Draws the panel that files entries under one category: a field that narrows the list beneath it
/// down and steps through it. Return or a click takes a line.
class SetCategoryDialog final : public SheetScaffold {
    Q_OBJECT

public:
    SetCategoryDialog(AppEnvironment& environment, std::shared_ptr<const UUIDSet> ids,
                      QWidget* parent = nullptr);

    [[nodiscard]] QLineEdit* field() const { return field_; }
    [[nodiscard]] PickerList* list() const { return list_; }

protected:
    void save() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    SetCategoryDialog(AppEnvironment& environment, SetCategoryView view, QWidget* parent);

    void showLines();
    /// Whether Return has something to take.
    void showState();

    SetCategoryView view_;
    QLineEdit* field_;
    PickerList* list_;
};

} // namespace oakfen
