#include "Oakfen/Widgets/Shell/SheetRouter.h"

#include "Oakfen/Widgets/Editors/AccountEditorDialog.h"
#include "Oakfen/Widgets/Editors/CategoryEditorDialog.h"
#include "Oakfen/Widgets/Editors/ContributionDialog.h"
#include "Oakfen/Widgets/Editors/EnterReminderDialog.h"
#include "Oakfen/Widgets/Editors/GoalEditorDialog.h"
#include "Oakfen/Widgets/Editors/ScheduledEditorDialog.h"
#include "Oakfen/Widgets/Editors/SeveralEditorDialog.h"
#include "Oakfen/Widgets/Editors/TransactionEditorDialog.h"
#include "Oakfen/Widgets/Import/ImportReviewDialog.h"
#include "Oakfen/Widgets/Reconcile/ReconcileDialog.h"
#include "Oakfen/Widgets/Register/SetCategoryDialog.h"
#include "OakfenCore/LibraryOperations/SavingsGoals.h"

namespace oakfen {

namespace {

/// Null for an id that is gone.
const ScheduledTransaction* reminderOf(const Library& library, const UUID& id) {
    return library.scheduled.first([&](const ScheduledTransaction& each) { return each.id == id; });
}

/// One overload for each sheet that has a screen; the rest fall to the template.
struct DialogMaker {
    AppEnvironment& environment;
    QWidget* parent;

    SheetScaffold* operator()(const ActiveSheet::NewAccount& /*sheet*/) const {
        return new AccountEditorDialog(environment, std::nullopt, parent);
    }
    SheetScaffold* operator()(const ActiveSheet::EditAccount& sheet) const {
        return new AccountEditorDialog(environment, sheet.id, parent);
    }
    SheetScaffold* operator()(const ActiveSheet::NewTransaction& sheet) const {
        return new TransactionEditorDialog(environment, TransactionEditor(environment, sheet),
                                           parent);
    }
    SheetScaffold* operator()(const ActiveSheet::EditTransaction& sheet) const {
        return new TransactionEditorDialog(environment, TransactionEditor(environment, sheet),
                                           parent);
    }
    SheetScaffold* operator()(const ActiveSheet::EditSeveral& sheet) const {
        return new SeveralEditorDialog(environment, sheet, parent);
    }
    SheetScaffold* operator()(const ActiveSheet::ImportReview& sheet) const {
        return new ImportReviewDialog(environment, sheet.session, parent);
    }
    SheetScaffold* operator()(const ActiveSheet::Reconcile& sheet) const {
        const Account* account = environment.store.index().account(sheet.accountID);
        return account != nullptr ? new ReconcileDialog(environment, *account, parent) : nullptr;
    }
    SheetScaffold* operator()(const ActiveSheet::Scheduled& sheet) const {
        // Who wanted to change a reminder that is gone is not asked for a new one.
        const bool isGone =
            sheet.id && reminderOf(environment.store.library(), *sheet.id) == nullptr;
        return isGone ? nullptr : new ScheduledEditorDialog(environment, sheet, parent);
    }
    SheetScaffold* operator()(const ActiveSheet::EnterReminder& sheet) const {
        const ScheduledTransaction* reminder = reminderOf(environment.store.library(), sheet.id);
        return reminder != nullptr ? new EnterReminderDialog(environment, *reminder, parent)
                                   : nullptr;
    }
    SheetScaffold* operator()(const ActiveSheet::SetCategory& sheet) const {
        return new SetCategoryDialog(environment, sheet.ids, parent);
    }
    SheetScaffold* operator()(const ActiveSheet::Goal& sheet) const {
        return new GoalEditorDialog(environment, sheet.id, parent);
    }
    SheetScaffold* operator()(const ActiveSheet::Contribute& sheet) const {
        const bool isKnown = goalOf(environment.store.library(), sheet.goalID) != nullptr;
        return isKnown ? new ContributionDialog(environment, sheet.goalID, parent) : nullptr;
    }
    SheetScaffold* operator()(const ActiveSheet::Category& sheet) const {
        return new CategoryEditorDialog(environment, sheet, parent);
    }
    template <typename Other>
    SheetScaffold* operator()(const Other& /*sheet*/) const {
        return nullptr;
    }
};

} // namespace

SheetScaffold* makeSheet(AppEnvironment& environment, const ActiveSheet& sheet, QWidget* parent) {
    return std::visit(DialogMaker{environment, parent}, sheet.content);
}

} // namespace oakfen
