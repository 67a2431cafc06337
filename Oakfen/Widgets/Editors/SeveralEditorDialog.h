#pragma once

#include <functional>

#include "Oakfen/Views/Editors/SeveralEditor.h"
#include "Oakfen/Widgets/Components/EditorSheet.h"

namespace oakfen {

/// Draws the editor of several entries: beside each field stands whether it is left as it is.
class SeveralEditorDialog final : public EditorSheetOf<SeveralEditor> {
    Q_OBJECT

public:
    SeveralEditorDialog(AppEnvironment& environment, const ActiveSheet::EditSeveral& sheet,
                        QWidget* parent = nullptr);

private:
    /// `differing` is what the field says while the entries have different texts.
    QLineEdit* addText(const QString& label, SharedValue<std::string>& value,
                       const QString& differing);
    void addDay();
    /// A row with the tick at its end that leaves the value as it is. `place` holds the field, or
    /// is it.
    template <typename Value>
    void addRow(const QString& label, QWidget& place, QWidget& field, SharedValue<Value>& value,
                const std::function<void()>& show);
};

} // namespace oakfen
