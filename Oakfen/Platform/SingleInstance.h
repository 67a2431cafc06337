#pragma once

#include <QLocalServer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Oakfen/Platform/DataFileLock.h"

namespace oakfen {

/// One program per data file: the lock beside it, and a local socket through which a second start
/// asks the first to show its window.
class SingleInstance {
public:
    SingleInstance(const std::string& dataFilePath, DataFileLock::AtTheEnd atTheEnd);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// False when another program has the file open. Where no lock is to be had, we go on without.
    [[nodiscard]] bool isFirst() const {
        return lock_.state() != DataFileLock::State::heldByAnother;
    }

    /// Calls back whenever another start asks for the window, with the path of a statement that it
    /// was given, or an empty text.
    void listen(std::function<void(const std::string& statementPath)> present);

    /// Asks the first program to show its window, and to import the statement if one is named.
    /// Returns nothing once it has been reached, else what to tell the person.
    [[nodiscard]] std::optional<std::string> presentFirst(const std::string& statementPath) const;

private:
    [[nodiscard]] std::optional<DataFileLock::Holder> patientHolder() const;

    std::string fileName_;
    DataFileLock lock_;
    std::unique_ptr<QLocalServer> server_;
};

} // namespace oakfen
