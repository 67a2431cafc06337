#include "OakfenCore/LibraryStore/Opening.h"

#include "OakfenCore/LibraryStore/ContainerFormat.h"
#include "OakfenCore/Models/LibraryCoding.h"

namespace oakfen {

namespace {

LoadOutcome newDocument() {
    return {.state = {.kind = AccessState::Kind::needsPassword}, .isNew = true};
}

LoadOutcome unavailable(std::string reason) {
    return {.state = {.kind = AccessState::Kind::legacyUnavailable, .reason = std::move(reason)}};
}

LoadOutcome damaged(DataFile& file, const LibraryDecodingError& error) {
    LoadOutcome outcome = newDocument();
    outcome.error = "Couldn’t open your data file: " + error.localizedDescription() +
                    ". The damaged file was set aside next to the original.";
    outcome.errorDetails = {.keptName = file.setAside(), .place = error.place()};
    return outcome;
}

LoadOutcome loadPlain(const std::string& bytes, DataFile& file, bool unencryptedByChoice) {
    try {
        using Kind = AccessState::Kind;
        return {.library = decodeLibrary(bytes),
                .state = {.kind = unencryptedByChoice ? Kind::open : Kind::needsPassword}};
    } catch (const LibraryDecodingError& error) {
        return damaged(file, error);
    }
}

} // namespace

LoadOutcome loadDocument(DataFile* file, bool unencryptedByChoice) {
    std::optional<std::string> bytes;
    try {
        bytes = file != nullptr ? file->read() : std::nullopt;
    } catch (const LocalizedError& error) {
        return unavailable("Your data file couldn’t be read: " + error.localizedDescription());
    }
    if (!bytes) {
        return newDocument();
    }
    switch (containerFormat(*bytes)) {
    case ContainerFormat::password:
        return {.state = {.kind = AccessState::Kind::locked}};
    case ContainerFormat::legacyV1:
    case ContainerFormat::legacyV2:
        return unavailable("The Keychain key that earlier versions used for this file is missing.");
    case ContainerFormat::plaintext:
        break;
    }
    return loadPlain(*bytes, *file, unencryptedByChoice);
}

Library decodeOtherVersion(const std::string& bytes) {
    if (containerFormat(bytes) != ContainerFormat::plaintext) {
        throw LocalizedError("The other version is protected by a password.");
    }
    try {
        return decodeLibrary(bytes);
    } catch (const LocalizedError& error) {
        const std::string reason = error.localizedDescription();
        throw LocalizedError("The other version couldn’t be read: " + reason +
                             (reason.ends_with('.') ? "" : "."));
    }
}

} // namespace oakfen
