#include "Oakfen/Cover.h"

namespace oakfen {

Cover cover(const AppEnvironment& environment) {
    if (!environment.store.accessState().isOpen()) {
        return Cover::gate;
    }
    const bool isLocked = environment.defaults.get(settings::requireAuthentication) &&
                          !environment.appState.isUnlocked();
    return isLocked ? Cover::lock : Cover::none;
}

bool isObscured(const AppEnvironment& environment) {
    return cover(environment) != Cover::none;
}

bool isMainScreenFree(const AppEnvironment& environment) {
    return !environment.appState.sheet() && !isObscured(environment);
}

bool canClose(const AppEnvironment& environment) {
    return !environment.appState.sheet() || cover(environment) == Cover::gate;
}

} // namespace oakfen
