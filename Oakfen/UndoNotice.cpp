#include "Oakfen/UndoNotice.h"

#include <utility>

#include "Oakfen/Cover.h"

namespace oakfen {

void offerUndo(AppEnvironment& environment, std::string text) {
    environment.appState.showNotice({.text = std::move(text),
                                     .actionTitle = "Undo",
                                     .action =
                                         [&environment] {
                                             // Not for whoever finds the window locked.
                                             if (!isObscured(environment)) {
                                                 environment.undoManager.undo();
                                             }
                                         },
                                     .isOfLastChange = true});
}

} // namespace oakfen
