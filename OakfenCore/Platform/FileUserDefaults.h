#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "OakfenCore/Platform/BackgroundWriter.h"
#include "OakfenCore/Platform/UserDefaults.h"
#include "OakfenCore/Support/Files/FileSystem.h"

namespace oakfen {

/// Settings in a file of lines "key=value". Changes are held for half a second and then written on
/// a worker, since each write waits for the disk; those that are still held are written at the end.
/// While writing fails, the values are kept in memory and tried again with the next change. Lines
/// that are no setting stay.
class FileUserDefaults final : public UserDefaults {
public:
    FileUserDefaults(FileSystem& files, Scheduler& scheduler, std::string path);
    ~FileUserDefaults() override;
    FileUserDefaults(const FileUserDefaults&) = delete;
    FileUserDefaults& operator=(const FileUserDefaults&) = delete;

    /// "Oakfen.conf" in the person's settings folder.
    [[nodiscard]] static std::string defaultFilePath();

    [[nodiscard]] std::optional<std::string> string(std::string_view key) const override;
    void setString(std::string_view key, std::string_view value) override;
    void remove(std::string_view key) override;
    void settle() override;

private:
    using Values = std::map<std::string, std::string, std::less<>>;
    /// By key what is not on disk yet; without a value for a key that was removed.
    using Changes = std::map<std::string, std::optional<std::string>, std::less<>>;

    void change(std::string_view key, std::optional<std::string> value);
    void writeSoon();
    void writeInBackground();
    /// What was changed again meanwhile remains to be written.
    void wereWritten(const Changes& changes);
    /// Throws a `LocalizedError`; then the file is as before.
    static void write(FileSystem& files, const std::string& path, const Changes& changes);

    FileSystem& files_;
    Scheduler& scheduler_;
    std::string path_;
    Values values_;
    Changes unwritten_;
    bool isHeld_ = false;
    ScheduledWork held_;
    BackgroundWriter writer_;
};

} // namespace oakfen
