#pragma once

#include <functional>
#include <string>
#include <vector>

#include "OakfenCore/Support/Values/Observers.h"

namespace oakfen {

struct AppEnvironment;

/// When another program has changed the data file: asks the person which version to go on with.
/// Asks by itself as soon as the store has noticed and nothing else is being asked.
class OtherVersionFlow {
public:
    enum class Decision { keptThisVersion, openedOtherVersion, none };

    explicit OtherVersionFlow(AppEnvironment& environment);
    OtherVersionFlow(const OtherVersionFlow&) = delete;
    OtherVersionFlow& operator=(const OtherVersionFlow&) = delete;

    /// Asks now, or joins the question that stands already; `then` is told the answer.
    void ask(std::function<void(Decision)> then);

private:
    void statusChanged();
    /// While nobody has decided, a word at the foot of the window says so, whatever else is said
    /// there in between.
    void noticeChanged();
    void showUndecided();
    void askWhenFree();
    void showQuestion();
    void keepThisVersion();
    void openOtherVersion();
    void end(Decision decision);
    /// Why the last answer could not be carried out; then the question stays.
    void askAgain(const std::string& reason);

    AppEnvironment& environment_;
    std::string reason_;
    bool isNoticed_ = false;
    bool isAsking_ = false;
    /// The question was put off.
    bool isPutOff_ = false;
    std::vector<std::function<void(Decision)>> whenDecided_;
    Subscription statusChanged_;
    Subscription noticeChanged_;
};

} // namespace oakfen
