#include "Oakfen/Widgets/Editors/CategoryEditorDialog.h"

#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

/// The place of the income's word; the expenses' comes first, as on the screen.
constexpr int incomePlace = 1;

} // namespace

CategoryEditorDialog::CategoryEditorDialog(AppEnvironment& environment,
                                           const ActiveSheet::Category& sheet, QWidget* parent)
    : EditorSheetOf(environment, std::make_unique<CategoryEditor>(environment, sheet), parent) {
    constexpr int sheetWidth = 448;
    setMinimumWidth(sheetWidth);
    CategoryEditor& edited = editor();
    form().text(tr("Name"), edited.draft.name).hint([&edited] { return qt(edited.nameHint()); });
    const QStringList words{qt(title(CategoryKind::expense)), qt(title(CategoryKind::income))};
    const Bound<int> kind(
        [&edited] { return edited.draft.kind == CategoryKind::income ? incomePlace : 0; },
        [&edited](const int& place) {
            edited.setKind(place == incomePlace ? CategoryKind::income : CategoryKind::expense);
        });
    form().segments(tr("Type"), words, kind).hint([&edited] { return qt(edited.kindHint()); });
    form().category(tr("Subcategory Of"), edited.parent, [&edited] { return edited.parentRows(); });
    form()
        .toggle(tr("Tax Related"), edited.draft.isTaxRelated)
        .help(tr("Counts in the report for taxes"));
    begin();
}

} // namespace oakfen
