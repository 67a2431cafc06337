#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "OakfenCore/Platform/UserDefaults.h"
#include "OakfenCore/Support/FileSystem.h"

namespace oakfen {

/// Settings in a file of lines "key=value". Each change is written at once; while that fails, the
/// value is kept in memory and tried again with the next change. Lines that are no setting stay.
class FileUserDefaults final : public UserDefaults {
public:
    FileUserDefaults(FileSystem& files, std::string path);

    /// "Oakfen.conf" in the person's settings folder.
    [[nodiscard]] static std::string defaultFilePath();

    [[nodiscard]] std::optional<std::string> string(std::string_view key) const override;
    void setString(std::string_view key, std::string_view value) override;
    void remove(std::string_view key) override;

private:
    using Values = std::map<std::string, std::string, std::less<>>;
    /// By key what is not on disk yet; without a value for a key that was removed.
    using Changes = std::map<std::string, std::optional<std::string>, std::less<>>;

    void change(std::string_view key, std::optional<std::string> value);
    [[nodiscard]] std::string fileText() const;
    void write();

    FileSystem& files_;
    std::string path_;
    Values values_;
    Changes unwritten_;
};

} // namespace oakfen
