#pragma once

#include <utility>
#include <vector>

#include "OakfenCore/Platform/Authenticator.h"

namespace oakfen {

/// A machine without a way to authenticate or, once it is told to hold its prompt, one on which
/// every prompt waits for `answer`.
class InMemoryAuthenticator final : public Authenticator {
public:
    /// The reasons of the prompts so far.
    std::vector<std::string> reasons;

    void holdPrompt() { holdsPrompt_ = true; }

    void authenticate(const std::string& reason,
                      std::function<void(const AuthenticationResult&)> then) override {
        reasons.push_back(reason);
        if (holdsPrompt_) {
            waiting_ = std::move(then);
        } else {
            then({.kind = AuthenticationResult::Kind::unavailable});
        }
    }

    /// Answers the prompt that came last; it must be waiting.
    void answer(const AuthenticationResult& result) { std::exchange(waiting_, nullptr)(result); }

private:
    bool holdsPrompt_ = false;
    std::function<void(const AuthenticationResult&)> waiting_;
};

} // namespace oakfen
