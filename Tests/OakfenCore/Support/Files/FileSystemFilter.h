#pragma once

#include <string>
#include <vector>

#include "OakfenCore/Support/Files/FileSystem.h"

namespace oakfen {

/// Hands every call on to another file system; what derives from it changes some of them.
class FileSystemFilter : public FileSystem {
public:
    explicit FileSystemFilter(FileSystem& files) : files_(files) {}

    Result open(const std::string& path, int flags, unsigned permissions) override {
        return files_.open(path, flags, permissions);
    }
    Result read(int descriptor, char* into, std::size_t count) override {
        return files_.read(descriptor, into, count);
    }
    Result write(int descriptor, const char* from, std::size_t count) override {
        return files_.write(descriptor, from, count);
    }
    Result sync(int descriptor) override { return files_.sync(descriptor); }
    Result close(int descriptor) override { return files_.close(descriptor); }
    Result rename(const std::string& from, const std::string& to) override {
        return files_.rename(from, to);
    }
    Result renameWithoutReplacing(const std::string& from, const std::string& to) override {
        return files_.renameWithoutReplacing(from, to);
    }
    Result exchange(const std::string& one, const std::string& other) override {
        return files_.exchange(one, other);
    }
    Result unlink(const std::string& path) override { return files_.unlink(path); }
    Result makeFolder(const std::string& path, unsigned permissions) override {
        return files_.makeFolder(path, permissions);
    }
    Result setPermissions(const std::string& path, unsigned permissions) override {
        return files_.setPermissions(path, permissions);
    }
    Result information(const std::string& path, FileInformation& into) override {
        return files_.information(path, into);
    }
    Result descriptorInformation(int descriptor, FileInformation& into) override {
        return files_.descriptorInformation(descriptor, into);
    }
    Result readLink(const std::string& path, std::string& into) override {
        return files_.readLink(path, into);
    }
    Result list(const std::string& folder, std::vector<std::string>& names) override {
        return files_.list(folder, names);
    }

private:
    FileSystem& files_;
};

} // namespace oakfen
