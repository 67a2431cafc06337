#pragma once

#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "OakfenCore/LibraryStore/LibraryStore.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Platform/InMemoryLegacyKeyStore.h"
#include "OakfenCore/Platform/InMemoryPasswordStore.h"
#include "OakfenCore/Platform/InMemoryUserDefaults.h"
#include "OakfenCore/Testing/FixedClock.h"
#include "OakfenCore/Testing/InMemoryFileSystem.h"
#include "OakfenCore/Testing/ManualScheduler.h"

namespace oakfen {

/// A store on files, time and settings that the test controls.
class StoreTest : public testing::Test {
protected:
    using Call = InMemoryFileSystem::Call;
    using Kind = AccessState::Kind;

    static constexpr const char* folder = "/home/user/Tarnwick";
    static constexpr const char* path = "/home/user/Tarnwick/Library.tarnwick";
    static constexpr const char* pathAside =
        "/home/user/Tarnwick/Library.damaged-1700000000.tarnwick";

    StoreTest() { files.addFolder("/home/user"); }

    /// Opens what is on the disk.
    LibraryStore& open(std::optional<std::string> filePath = path) {
        store_ = std::make_unique<LibraryStore>(std::move(filePath), services());
        store_->setUndoManager(undo);
        return *store_;
    }

    /// A store that is open on a plain file with that document.
    LibraryStore& openPlain(const Library& library) {
        files.addFile(path, encodeLibrary(library));
        choosePlain();
        return open();
    }
    LibraryStore& openPlain() { return openPlain(withAccount("Chequing")); }

    void close() { store_.reset(); }

    void choosePlain() { defaults.set(settings::dataFileUnencrypted, true); }

    [[nodiscard]] LibraryStoreServices services() {
        return {files, scheduler, clock, defaults, passwords, legacyKeys};
    }

    /// A document with one account, the same for the same name.
    [[nodiscard]] static Library withAccount(const std::string& name) {
        Library library{.currencyCode = "CAD"};
        library.accounts.push_back(account(name));
        return library;
    }

    [[nodiscard]] static Account account(const std::string& name) {
        Account result;
        result.id.bytes[0] = static_cast<std::uint8_t>(name.size());
        result.name = name;
        return result;
    }

    static void addAccount(LibraryStore& store, const std::string& name) {
        store.mutate("Add " + name,
                     [&](Library& library) { library.accounts.push_back(account(name)); });
    }

    [[nodiscard]] static std::size_t accountCount(const LibraryStore& store) {
        return store.library().accounts.size();
    }

    /// The document on the disk; nothing when there is no file.
    [[nodiscard]] std::optional<Library> onDisk() const {
        const std::optional<std::string> bytes = files.contents(path);
        return bytes ? std::optional(decodeLibrary(*bytes)) : std::nullopt;
    }

    /// Each write ends with setting the permissions, and nothing else sets them.
    [[nodiscard]] int writeCount() const { return files.count(Call::setPermissions); }

    InMemoryFileSystem files;
    ManualScheduler scheduler;
    FixedClock clock{Date::since1970(1'700'000'000.9)};
    InMemoryUserDefaults defaults;
    InMemoryPasswordStore passwords;
    InMemoryLegacyKeyStore legacyKeys;
    std::shared_ptr<History> undo = std::make_shared<History>();

private:
    std::unique_ptr<LibraryStore> store_;
};

} // namespace oakfen
