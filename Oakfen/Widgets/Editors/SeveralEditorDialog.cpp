#include "Oakfen/Widgets/Editors/SeveralEditorDialog.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSignalBlocker>

#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

SeveralEditorDialog::SeveralEditorDialog(AppEnvironment& environment,
                                         const ActiveSheet::EditSeveral& sheet, QWidget* parent)
    : EditorSheetOf(environment, std::make_unique<SeveralEditor>(environment, sheet), parent) {
    constexpr int sheetWidth = 520;
    setMinimumWidth(sheetWidth);
    QLineEdit* first = addText(tr("Payee"), editor().payee, tr("Different payees"));
    addText(tr("Memo"), editor().memo, tr("Different memos"));
    addText(tr("Tags"), editor().tagsText, tr("Different tags"));
    addDay();
    begin();
    first->setFocus();
    first->selectAll();
}

QLineEdit* SeveralEditorDialog::addText(const QString& label, SharedValue<std::string>& value,
                                        const QString& differing) {
    auto* field = new QLineEdit;
    field->setAccessibleName(label);
    connect(field, &QLineEdit::textChanged, this, [this, &value](const QString& text) {
        value.set(utf8(text));
        refresh();
    });
    addRow(label, *field, *field, value, [field, &value, differing] {
        if (utf8(field->text()) != value.value()) {
            const QSignalBlocker blocker(field);
            field->setText(qt(value.value()));
            field->setCursorPosition(0);
        }
        const bool isHinted = value.isLeft() && !value.isCommon();
        field->setPlaceholderText(isHinted ? differing : QString());
    });
    return field;
}

void SeveralEditorDialog::addDay() {
    SharedValue<oakfen::Date>& day = editor().day;
    auto* place = new QWidget;
    auto* line = new QHBoxLayout(place);
    line->setContentsMargins(0, 0, 0, 0);
    auto* differing = new QLabel(tr("Different days"));
    Theme::setText(*differing, TextStyle::body, ThemeColor::secondaryText);
    auto* field = new DateField(tr("Day"), environment_.clock);
    field->setAccessibleName(tr("Day"));
    field->setValue(day.value());
    line->addWidget(differing, 1);
    line->addWidget(field, 1);
    differing->setMinimumHeight(field->sizeHint().height());
    field->edited = [this, field, &day] {
        day.set(field->value());
        refresh();
    };
    addRow(tr("Day"), *place, *field, day, [field, differing, &day] {
        if ((day.isLeft() && !field->isReadable()) || field->value() != day.value()) {
            field->setValue(day.value());
        }
        const bool isShown = day.isCommon() || !day.isLeft();
        field->setVisible(isShown);
        differing->setVisible(!isShown);
    });
}

template <typename Value>
void SeveralEditorDialog::addRow(const QString& label, QWidget& place, QWidget& field,
                                 SharedValue<Value>& value, const std::function<void()>& show) {
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(2 * Theme::grid);
    auto* leave = new QCheckBox(tr("Leave as it is"));
    leave->setAccessibleName(tr("Leave %1 as it is").arg(label));
    leave->setToolTip(tr("Each transaction keeps its own"));
    line->addWidget(&place, 1);
    line->addWidget(leave);
    connect(leave, &QCheckBox::clicked, this, [this, &field, &value](bool isLeft) {
        value.setLeft(isLeft);
        refresh();
        if (!isLeft) {
            field.setFocus(Qt::OtherFocusReason);
        }
    });
    form().custom(label, row, [show, leave, &value] {
        show();
        leave->setChecked(value.isLeft());
    });
}

} // namespace oakfen
