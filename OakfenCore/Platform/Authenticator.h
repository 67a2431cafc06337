#pragma once

#include <functional>
#include <string>

namespace oakfen {

/// How asking a person to prove who they are came out.
struct AuthenticationResult {
    enum class Kind { passed, unavailable, failed };

    /// `unavailable` where the machine has no way to authenticate.
    Kind kind = Kind::failed;
    /// For `failed`: the text to show.
    std::string error = {};

    friend bool operator==(const AuthenticationResult&, const AuthenticationResult&) = default;
};

/// The system's prompt for the person's own login credentials or biometrics.
class Authenticator {
public:
    virtual ~Authenticator() = default;

    /// Asks, for a reason such as "unlock your financial data". Answers on the main thread, at once
    /// or later.
    virtual void authenticate(const std::string& reason,
                              std::function<void(const AuthenticationResult&)> then) = 0;
};

/// A machine that has no way to authenticate.
class NoAuthenticator final : public Authenticator {
public:
    void authenticate(const std::string& /*reason*/,
                      std::function<void(const AuthenticationResult&)> then) override {
        then({.kind = AuthenticationResult::Kind::unavailable});
    }
};

} // namespace oakfen
