#pragma once

#include <functional>
#include <map>
#include <string>

#include "OakfenCore/Platform/UserDefaults.h"

namespace oakfen {

/// Settings that last as long as the object.
class InMemoryUserDefaults final : public UserDefaults {
public:
    [[nodiscard]] std::optional<std::string> string(std::string_view key) const override {
        const auto found = values_.find(key);
        return found == values_.end() ? std::nullopt : std::optional(found->second);
    }

    void setString(std::string_view key, std::string_view value) override {
        if (string(key) != value) {
            values_.insert_or_assign(std::string(key), std::string(value));
            tellChanged(key);
        }
    }

    void remove(std::string_view key) override {
        const auto found = values_.find(key);
        if (found != values_.end()) {
            values_.erase(found);
            tellChanged(key);
        }
    }

private:
    std::map<std::string, std::string, std::less<>> values_;
};

} // namespace oakfen
