#include "Oakfen/Widgets/SheetRouter.h"

#include "Oakfen/Widgets/AccountEditorDialog.h"
#include "Oakfen/Widgets/ImportReviewDialog.h"
#include "Oakfen/Widgets/ReconcileDialog.h"
#include "Oakfen/Widgets/TransactionEditorDialog.h"

namespace oakfen {

namespace {

/// One overload for each sheet that has a screen; the rest fall to the template.
struct DialogMaker {
    AppEnvironment& environment;
    QWidget* parent;

    QDialog* operator()(const ActiveSheet::NewAccount& /*sheet*/) const {
        return new AccountEditorDialog(environment, std::nullopt, parent);
    }
    QDialog* operator()(const ActiveSheet::EditAccount& sheet) const {
        return new AccountEditorDialog(environment, sheet.id, parent);
    }
    QDialog* operator()(const ActiveSheet::NewTransaction& sheet) const {
        return new TransactionEditorDialog(environment, TransactionEditor(environment, sheet),
                                           parent);
    }
    QDialog* operator()(const ActiveSheet::EditTransaction& sheet) const {
        return new TransactionEditorDialog(environment, TransactionEditor(environment, sheet),
                                           parent);
    }
    QDialog* operator()(const ActiveSheet::ImportReview& sheet) const {
        return new ImportReviewDialog(environment, sheet.session, parent);
    }
    QDialog* operator()(const ActiveSheet::Reconcile& sheet) const {
        const Account* account = environment.store.index().account(sheet.accountID);
        return account != nullptr ? new ReconcileDialog(environment, *account, parent) : nullptr;
    }
    template <typename Other>
    QDialog* operator()(const Other& /*sheet*/) const {
        return nullptr;
    }
};

} // namespace

QDialog* makeSheet(AppEnvironment& environment, const ActiveSheet& sheet, QWidget* parent) {
    return std::visit(DialogMaker{environment, parent}, sheet.content);
}

} // namespace oakfen
