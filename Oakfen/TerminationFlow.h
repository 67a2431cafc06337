#pragma once

#include <functional>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// Quitting: the last edits are written first, and a failure to write them holds the quit until the
/// person has decided.
class TerminationFlow {
public:
    /// `quit` ends the program.
    TerminationFlow(AppEnvironment& environment, std::function<void()> quit);

    /// Lets files that are being read or written come to their end, saves and quits. When another
    /// program has changed the data file, asks first which version to keep. When the save fails,
    /// asks whether to try again or to quit anyway; a file that could not be written holds
    /// the quit, so that the person learns of it.
    void requestQuit();

    /// Saves and quits whatever happens: for a session that ends and can't wait for an answer.
    /// Where another program has changed the data file, this version is kept beside it.
    void quitWithoutAsking();

private:
    void saveAndQuit();
    [[nodiscard]] bool save();
    void askForVersion();
    void askAfterFailure();

    AppEnvironment& environment_;
    std::function<void()> quit_;
    /// A second request while the question is open would open it twice.
    bool isAsking_ = false;
    bool isWaiting_ = false;
};

} // namespace oakfen
