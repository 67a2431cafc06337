#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace oakfen {

/// A new folder on the real disk that goes with the object.
class TemporaryFolder {
public:
    TemporaryFolder() : path_(std::filesystem::temp_directory_path() / "oakfen-XXXXXX") {
        if (::mkdtemp(path_.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string operator/(const std::string& name) const {
        return path_ + "/" + name;
    }
    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
};

} // namespace oakfen
