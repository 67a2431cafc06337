#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "OakfenCore/Platform/Settings.h"
#include "OakfenCore/Support/Values/Observers.h"

namespace oakfen {

/// The person's settings. They are read and changed by the entries of the table of settings;
/// beneath, each is a text under its key.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// What is stored; the fallback where nothing is, or a text that is no such value.
    [[nodiscard]] bool get(const Setting<bool>& setting) const;
    [[nodiscard]] long long get(const Setting<long long>& setting) const;
    [[nodiscard]] double get(const Setting<double>& setting) const;
    [[nodiscard]] std::string get(const Setting<std::string_view>& setting) const;

    /// The stored text as `read` understands it, else the fallback. `read` returns an optional,
    /// which must have a value for the fallback.
    template <typename Read>
    [[nodiscard]] auto get(const Setting<std::string_view>& setting, Read&& read) const {
        const auto stored = read(get(setting));
        return stored ? *stored : *read(setting.fallback);
    }

    void set(const Setting<bool>& setting, bool value);
    void set(const Setting<long long>& setting, long long value);
    void set(const Setting<double>& setting, double value);
    void set(const Setting<std::string_view>& setting, std::string_view value);

    [[nodiscard]] virtual std::optional<std::string> string(std::string_view key) const = 0;
    virtual void setString(std::string_view key, std::string_view value) = 0;
    virtual void remove(std::string_view key) = 0;

    /// Lets what was changed reach the disk before it returns, where it is kept there.
    virtual void settle() {}

    /// Calls back after each change of that setting, and of no other.
    template <typename Value>
    [[nodiscard]] Subscription observe(const Setting<Value>& setting,
                                       std::function<void()> callback) {
        return observers_[std::string(setting.key)].observe(std::move(callback));
    }

protected:
    /// Tells those who observe the setting under that key.
    void tellChanged(std::string_view key);

private:
    std::map<std::string, Observers<>, std::less<>> observers_;
};

} // namespace oakfen
