#include "Oakfen/Views/Shell/WindowTitle.h"

#include "Oakfen/Cover.h"
#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Views/Shell/DetailView.h"

namespace oakfen {

std::string windowTitle(const AppEnvironment& environment) {
    if (isObscured(environment)) {
        return "Oakfen";
    }
    const LibraryIndex& index = environment.store.index();
    const auto id = environment.appState.selectedAccountID();
    const Account* account = id ? index.account(*id) : nullptr;
    return singleLine(
               account != nullptr
                   ? account->name
                   : placeholder(detailScreen(environment.appState.selection(), index)).title) +
           " — Oakfen";
}

} // namespace oakfen
