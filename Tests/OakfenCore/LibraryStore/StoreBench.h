#pragma once

#include "OakfenCore/LibraryStore/LibraryStore.h"
#include "OakfenCore/Platform/InMemoryLegacyKeyStore.h"
#include "OakfenCore/Platform/InMemoryPasswordStore.h"
#include "OakfenCore/Platform/InMemoryUserDefaults.h"
#include "OakfenCore/Testing/FixedClock.h"
#include "OakfenCore/Testing/ManualScheduler.h"

namespace oakfen {

/// All that a store works with but the files, for whoever brings files of its own.
struct StoreBench {
    explicit StoreBench(FileSystem& theFiles) : files(theFiles) {}

    [[nodiscard]] LibraryStoreServices services() {
        return {files, scheduler, clock, defaults, passwords, legacyKeys};
    }

    void choosePlain() { defaults.set(settings::dataFileUnencrypted, true); }

    FileSystem& files;
    ManualScheduler scheduler;
    FixedClock clock{Date::since1970(1'700'000'000)};
    InMemoryUserDefaults defaults;
    InMemoryPasswordStore passwords;
    InMemoryLegacyKeyStore legacyKeys;
};

/// A document with that many accounts, the same for the same number.
[[nodiscard]] inline Library documentWithAccounts(int count) {
    Library library{.currencyCode = "CAD"};
    for (int number = 0; number < count; ++number) {
        Account account;
        account.id.bytes[0] = static_cast<std::uint8_t>(number);
        account.id.bytes[1] = static_cast<std::uint8_t>(number / 256);
        account.name = "Account " + std::to_string(number);
        account.notes = "One of " + std::to_string(count);
        library.accounts.push_back(account);
    }
    return library;
}

} // namespace oakfen
