#pragma once

#include <array>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/Support/Files/FileSystem.h"

namespace oakfen {

/// Files in memory, for tests: folders, permissions of the owner, symbolic links, calls that fail
/// on demand, and a crash that loses what was not synced. Relative paths start at the root.
class InMemoryFileSystem final : public FileSystem {
public:
    enum class Call {
        open,
        read,
        write,
        sync,
        close,
        rename,
        renameWithoutReplacing,
        exchange,
        unlink,
        makeFolder,
        setPermissions,
        information,
        descriptorInformation,
        readLink,
        list
    };

    InMemoryFileSystem();

    Result open(const std::string& path, int flags, unsigned permissions) override;
    Result read(int descriptor, char* into, std::size_t count) override;
    Result write(int descriptor, const char* from, std::size_t count) override;
    Result sync(int descriptor) override;
    Result close(int descriptor) override;
    Result rename(const std::string& from, const std::string& to) override;
    Result renameWithoutReplacing(const std::string& from, const std::string& to) override;
    Result exchange(const std::string& one, const std::string& other) override;
    Result unlink(const std::string& path) override;
    Result makeFolder(const std::string& path, unsigned permissions) override;
    Result setPermissions(const std::string& path, unsigned permissions) override;
    Result information(const std::string& path, FileInformation& into) override;
    Result descriptorInformation(int descriptor, FileInformation& into) override;
    Result readLink(const std::string& path, std::string& into) override;
    Result list(const std::string& folder, std::vector<std::string>& names) override;

    // Setting up. None of these counts as a call or can fail; folders on the way are made, and all
    // of it survives a crash.
    void addFolder(const std::string& path, unsigned permissions = 0755);
    void addFile(const std::string& path, std::string_view contents, unsigned permissions = 0600);
    void addLink(const std::string& path, const std::string& target);
    /// Changes a file in place, as a program does that opens it and writes into it.
    void overwrite(const std::string& path, std::string_view contents);
    /// When the file was last modified, in nanoseconds since 1970. The clock of these files ticks
    /// once with each change of contents.
    void setModified(const std::string& path, std::int64_t time);
    /// Gives a file or folder another name, replacing what stands there.
    void moveByAnotherProgram(const std::string& from, const std::string& to);
    void remove(const std::string& path);

    // Looking. Links are followed; nothing where no such file or folder is.
    [[nodiscard]] std::optional<std::string> contents(const std::string& path) const;
    [[nodiscard]] std::optional<unsigned> permissions(const std::string& path) const;
    /// What the folder holds, in plain order; empty where there is no such folder.
    [[nodiscard]] std::vector<std::string> names(const std::string& folder) const;
    [[nodiscard]] bool isLink(const std::string& path) const;
    [[nodiscard]] std::size_t openDescriptors() const { return descriptors_.size(); }

    // Failing.
    enum class Repeat { once, fromThenOn, everyOtherFromThenOn };
    /// The call of that number, counted from 1 from now on, fails without an effect (a failing
    /// close closes all the same).
    void failCall(int number, int error, Repeat repeat = Repeat::once);
    /// Likewise, counting only calls of that kind.
    void failCall(Call call, int number, int error, Repeat repeat = Repeat::once);
    /// Every call of that kind fails.
    void failAll(Call call, int error);
    void stopFailing();
    /// Whether a call has failed since `failCall` or `failAll`.
    [[nodiscard]] bool hasFailed() const { return hasFailed_; }
    /// Reads and writes take at most so many bytes at a time.
    void setLargestTransfer(std::size_t count) { largestTransfer_ = count; }
    /// Writes fail with ENOSPC once so many bytes more were written.
    void setFreeSpace(std::size_t count) { freeSpace_ = count; }

    [[nodiscard]] int count(Call call) const { return counts_[static_cast<std::size_t>(call)]; }

    /// What a power cut may leave.
    struct Crash {
        /// Whether names that were not synced reached the disk none the less, as they may.
        bool keepsNames = false;
        /// How many bytes of a file that was not synced reached the disk.
        std::size_t keptBytes = 0;
    };
    /// Closes every file and forgets what was not synced; nothing fails from then on.
    void crash(const Crash& crash);

private:
    struct Node;
    using NodePointer = std::shared_ptr<Node>;
    struct Place;
    struct Descriptor {
        NodePointer node;
        std::size_t offset = 0;
        bool reads = false;
        bool writes = false;
    };

    static constexpr std::size_t callKinds = static_cast<std::size_t>(Call::list) + 1;

    [[nodiscard]] std::optional<Result> begin(Call call);
    [[nodiscard]] Place find(const std::string& path, bool followLast) const;
    [[nodiscard]] NodePointer nodeAt(const std::string& path) const;
    [[nodiscard]] Result move(const std::string& from, const std::string& to, bool mayReplace);
    [[nodiscard]] Descriptor* descriptor(int number);
    void add(const std::string& path, NodePointer node);
    [[nodiscard]] NodePointer makeNode(Node node);
    void touch(Node& node);

    std::uint64_t lastInode_ = 0;
    std::int64_t ticks_ = 0;
    NodePointer root_;
    std::map<int, Descriptor> descriptors_;
    std::array<int, callKinds> counts_{};
    std::array<int, callKinds> failingKinds_{};
    /// Which calls are counted; all when absent.
    std::optional<Call> countedKind_;
    int callsUntilFailure_ = 0;
    int failure_ = 0;
    Repeat repeat_ = Repeat::once;
    bool hasFailed_ = false;
    std::size_t largestTransfer_ = std::numeric_limits<std::size_t>::max();
    std::size_t freeSpace_ = std::numeric_limits<std::size_t>::max();
};

} // namespace oakfen
