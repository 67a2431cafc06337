#include "OakfenCore/LibraryStore/Opening.h"

#include <cerrno>

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

LoadOutcome damaged(const std::string& filePath, const LibraryStoreServices& services,
                    const LocalizedError& error) {
    LoadOutcome outcome = newDocument();
    outcome.error = "Couldn’t open your data file: " + error.localizedDescription() +
                    ". The damaged file was set aside next to the original.";
    try {
        setAside(services, filePath);
    } catch (const LocalizedError&) {
        // Whoever writes next must move it first.
        outcome.leavesDamagedFile = true;
    }
    return outcome;
}

LoadOutcome loadPlain(const std::string& bytes, const std::string& filePath,
                      const LibraryStoreServices& services, bool unencryptedByChoice) {
    try {
        using Kind = AccessState::Kind;
        return {.library = decodeLibrary(bytes),
                .state = {.kind = unencryptedByChoice ? Kind::open : Kind::needsPassword}};
    } catch (const LocalizedError& error) {
        return damaged(filePath, services, error);
    }
}

} // namespace

LoadOutcome loadDocument(const std::optional<std::string>& filePath,
                         const LibraryStoreServices& services, bool unencryptedByChoice) {
    std::string bytes;
    try {
        // A file of which nothing can be told is not taken for a missing one: the new document
        // that a missing file begins would later replace it.
        if (!filePath || !fileInformation(services.files, *filePath)) {
            return newDocument();
        }
        bytes = readFile(services.files, *filePath);
    } catch (const LocalizedError& error) {
        return unavailable("Your data file couldn’t be read: " + error.localizedDescription());
    }
    switch (containerFormat(bytes)) {
    case ContainerFormat::password:
        return {.state = {.kind = AccessState::Kind::locked}};
    case ContainerFormat::legacyV1:
    case ContainerFormat::legacyV2:
        return unavailable("The Keychain key that earlier versions used for this file is missing.");
    case ContainerFormat::plaintext:
        break;
    }
    return loadPlain(bytes, *filePath, services, unencryptedByChoice);
}

std::string pathForSettingAside(const std::string& filePath, Date now) {
    const std::size_t slash = filePath.rfind('/');
    const std::size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
    const std::size_t dot = filePath.rfind('.');
    // A dot that begins the name begins no extension.
    const bool hasExtension = dot != std::string::npos && dot > nameStart;
    const auto seconds = static_cast<long long>(now.secondsSince1970());
    return filePath.substr(0, hasExtension ? dot : filePath.size()) + ".damaged-" +
           std::to_string(seconds) + ".tarnwick";
}

void setAside(const LibraryStoreServices& services, const std::string& filePath) {
    try {
        moveFile(services.files, filePath, pathForSettingAside(filePath, services.clock.now()));
    } catch (const FileError& error) {
        if (error.code() != ENOENT) {
            throw;
        }
    }
}

} // namespace oakfen
