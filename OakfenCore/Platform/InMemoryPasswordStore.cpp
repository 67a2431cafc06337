#include "OakfenCore/Platform/InMemoryPasswordStore.h"

#include <utility>

#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {

InMemoryPasswordStore::InMemoryPasswordStore(std::optional<std::string> password)
    : password_(std::move(password)) {}

std::optional<std::string> InMemoryPasswordStore::load() {
    const std::lock_guard held(lock_);
    check();
    return password_;
}

void InMemoryPasswordStore::save(const std::string& password) {
    const std::lock_guard held(lock_);
    check();
    password_ = password;
}

void InMemoryPasswordStore::remove() {
    const std::lock_guard held(lock_);
    check();
    password_.reset();
}

bool InMemoryPasswordStore::exists() noexcept {
    const std::lock_guard held(lock_);
    return !failure_ && password_.has_value();
}

void InMemoryPasswordStore::failWith(std::optional<std::string> description) {
    const std::lock_guard held(lock_);
    failure_ = std::move(description);
}

void InMemoryPasswordStore::check() const {
    if (failure_) {
        throw LocalizedError(*failure_);
    }
}

} // namespace oakfen
