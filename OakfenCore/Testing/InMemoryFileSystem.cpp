#include "OakfenCore/Testing/InMemoryFileSystem.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>

#include "OakfenCore/Testing/InMemoryNode.h"

namespace oakfen {

namespace {

FileSystem::Result failed(int error) {
    return {-1, error};
}

/// After a failure; 0 when none follows.
int callsUntilNextFailure(InMemoryFileSystem::Repeat repeat) {
    switch (repeat) {
    case InMemoryFileSystem::Repeat::once:
        return 0;
    case InMemoryFileSystem::Repeat::fromThenOn:
        return 1;
    case InMemoryFileSystem::Repeat::everyOtherFromThenOn:
        return 2;
    }
    return 0;
}

} // namespace

InMemoryFileSystem::InMemoryFileSystem()
    : root_(makeNode({.kind = Node::Kind::folder, .permissions = 0755})) {}

std::optional<FileSystem::Result> InMemoryFileSystem::begin(Call call) {
    const auto kind = static_cast<std::size_t>(call);
    ++counts_[kind];
    if (failingKinds_[kind] != 0) {
        hasFailed_ = true;
        return failed(failingKinds_[kind]);
    }
    if (countedKind_ && countedKind_ != call) {
        return std::nullopt;
    }
    if (callsUntilFailure_ > 1) {
        --callsUntilFailure_;
    } else if (callsUntilFailure_ == 1) {
        hasFailed_ = true;
        callsUntilFailure_ = callsUntilNextFailure(repeat_);
        return failed(failure_);
    }
    return std::nullopt;
}

InMemoryFileSystem::Descriptor* InMemoryFileSystem::descriptor(int number) {
    const auto found = descriptors_.find(number);
    return found == descriptors_.end() ? nullptr : &found->second;
}

FileSystem::Result InMemoryFileSystem::open(const std::string& path, int flags,
                                            unsigned permissions) {
    if (const auto failure = begin(Call::open)) {
        return *failure;
    }
    const bool creates = (flags & O_CREAT) != 0;
    const bool exclusive = creates && (flags & O_EXCL) != 0;
    const bool followsLast = !exclusive && (flags & O_NOFOLLOW) == 0;
    Place place = find(path, followsLast);
    if (place.error != 0) {
        return failed(place.error);
    }
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    const bool reads = (flags & O_ACCMODE) != O_WRONLY;
    if (!place.node) {
        if (!creates) {
            return failed(ENOENT);
        }
        if (!place.folder->mayWrite()) {
            return failed(EACCES);
        }
        place.node = makeNode({.kind = Node::Kind::file, .permissions = permissions & 07777U});
        place.folder->entries[place.name] = place.node;
    } else {
        if (exclusive) {
            return failed(EEXIST);
        }
        if (place.node->isLink()) {
            return failed(ELOOP);
        }
        if ((flags & O_DIRECTORY) != 0 && !place.node->isFolder()) {
            return failed(ENOTDIR);
        }
        if (writes && place.node->isFolder()) {
            return failed(EISDIR);
        }
        if ((reads && !place.node->mayRead()) || (writes && !place.node->mayWrite())) {
            return failed(EACCES);
        }
        if (writes && (flags & O_TRUNC) != 0) {
            place.node->contents.clear();
            touch(*place.node);
        }
    }
    int number = 3;
    while (descriptors_.contains(number)) {
        ++number;
    }
    descriptors_[number] = Descriptor{.node = place.node, .reads = reads, .writes = writes};
    return {number, 0};
}

FileSystem::Result InMemoryFileSystem::read(int number, char* into, std::size_t count) {
    if (const auto failure = begin(Call::read)) {
        return *failure;
    }
    Descriptor* const file = descriptor(number);
    if (file == nullptr || !file->reads) {
        return failed(EBADF);
    }
    if (file->node->isFolder()) {
        return failed(EISDIR);
    }
    const std::string& contents = file->node->contents;
    const std::size_t start = std::min(file->offset, contents.size());
    const std::size_t length = std::min({count, largestTransfer_, contents.size() - start});
    std::memcpy(into, contents.data() + start, length);
    file->offset += length;
    return {static_cast<std::int64_t>(length), 0};
}

FileSystem::Result InMemoryFileSystem::write(int number, const char* from, std::size_t count) {
    if (const auto failure = begin(Call::write)) {
        return *failure;
    }
    Descriptor* const file = descriptor(number);
    if (file == nullptr || !file->writes) {
        return failed(EBADF);
    }
    const std::size_t length = std::min({count, largestTransfer_, freeSpace_});
    if (length == 0 && count > 0) {
        return failed(ENOSPC);
    }
    std::string& contents = file->node->contents;
    contents.resize(std::max(contents.size(), file->offset + length));
    std::memcpy(contents.data() + file->offset, from, length);
    touch(*file->node);
    file->offset += length;
    freeSpace_ -= freeSpace_ == std::numeric_limits<std::size_t>::max() ? 0 : length;
    return {static_cast<std::int64_t>(length), 0};
}

FileSystem::Result InMemoryFileSystem::sync(int number) {
    if (const auto failure = begin(Call::sync)) {
        return *failure;
    }
    Descriptor* const file = descriptor(number);
    if (file == nullptr) {
        return failed(EBADF);
    }
    file->node->syncedContents = file->node->contents;
    file->node->syncedEntries = file->node->entries;
    return {};
}

FileSystem::Result InMemoryFileSystem::close(int number) {
    const bool wasOpen = descriptors_.erase(number) > 0;
    if (const auto failure = begin(Call::close)) {
        return *failure;
    }
    return wasOpen ? Result{} : failed(EBADF);
}

FileSystem::Result InMemoryFileSystem::rename(const std::string& from, const std::string& to) {
    if (const auto failure = begin(Call::rename)) {
        return *failure;
    }
    return move(from, to, true);
}

FileSystem::Result InMemoryFileSystem::renameWithoutReplacing(const std::string& from,
                                                              const std::string& to) {
    if (const auto failure = begin(Call::renameWithoutReplacing)) {
        return *failure;
    }
    return move(from, to, false);
}

FileSystem::Result InMemoryFileSystem::move(const std::string& from, const std::string& to,
                                            bool mayReplace) {
    const Place source = find(from, false);
    const Place target = find(to, false);
    if (source.error != 0 || target.error != 0) {
        return failed(source.error != 0 ? source.error : target.error);
    }
    if (!source.node) {
        return failed(ENOENT);
    }
    if (!source.folder->mayWrite() || !target.folder->mayWrite()) {
        return failed(EACCES);
    }
    if (target.node && !mayReplace) {
        return failed(EEXIST);
    }
    if (target.node && target.node->isFolder() != source.node->isFolder()) {
        return failed(target.node->isFolder() ? EISDIR : ENOTDIR);
    }
    if (target.node && target.node->isFolder() && !target.node->entries.empty()) {
        return failed(ENOTEMPTY);
    }
    source.folder->entries.erase(source.name);
    target.folder->entries[target.name] = source.node;
    return {};
}

FileSystem::Result InMemoryFileSystem::exchange(const std::string& one, const std::string& other) {
    if (const auto failure = begin(Call::exchange)) {
        return *failure;
    }
    const Place first = find(one, false);
    const Place second = find(other, false);
    if (first.error != 0 || second.error != 0) {
        return failed(first.error != 0 ? first.error : second.error);
    }
    if (!first.node || !second.node) {
        return failed(ENOENT);
    }
    if (!first.folder->mayWrite() || !second.folder->mayWrite()) {
        return failed(EACCES);
    }
    first.folder->entries[first.name] = second.node;
    second.folder->entries[second.name] = first.node;
    return {};
}

FileSystem::Result InMemoryFileSystem::unlink(const std::string& path) {
    if (const auto failure = begin(Call::unlink)) {
        return *failure;
    }
    const Place place = find(path, false);
    if (place.error != 0 || !place.node) {
        return failed(place.error != 0 ? place.error : ENOENT);
    }
    if (place.node->isFolder()) {
        return failed(EISDIR);
    }
    if (!place.folder->mayWrite()) {
        return failed(EACCES);
    }
    place.folder->entries.erase(place.name);
    return {};
}

FileSystem::Result InMemoryFileSystem::makeFolder(const std::string& path, unsigned permissions) {
    if (const auto failure = begin(Call::makeFolder)) {
        return *failure;
    }
    const Place place = find(path, false);
    if (place.error != 0 || place.node) {
        return failed(place.error != 0 ? place.error : EEXIST);
    }
    if (!place.folder->mayWrite()) {
        return failed(EACCES);
    }
    place.folder->entries[place.name] =
        makeNode({.kind = Node::Kind::folder, .permissions = permissions & 07777U});
    return {};
}

FileSystem::Result InMemoryFileSystem::setPermissions(const std::string& path,
                                                      unsigned permissions) {
    if (const auto failure = begin(Call::setPermissions)) {
        return *failure;
    }
    const Place place = find(path, true);
    if (place.error != 0 || !place.node) {
        return failed(place.error != 0 ? place.error : ENOENT);
    }
    place.node->permissions = permissions & 07777U;
    return {};
}

FileSystem::Result InMemoryFileSystem::information(const std::string& path, FileInformation& into) {
    if (const auto failure = begin(Call::information)) {
        return *failure;
    }
    const Place place = find(path, true);
    if (place.error != 0 || !place.node) {
        return failed(place.error != 0 ? place.error : ENOENT);
    }
    into = place.node->information();
    return {};
}

FileSystem::Result InMemoryFileSystem::descriptorInformation(int number, FileInformation& into) {
    if (const auto failure = begin(Call::descriptorInformation)) {
        return *failure;
    }
    const Descriptor* const file = descriptor(number);
    if (file == nullptr) {
        return failed(EBADF);
    }
    into = file->node->information();
    return {};
}

FileSystem::Result InMemoryFileSystem::readLink(const std::string& path, std::string& into) {
    if (const auto failure = begin(Call::readLink)) {
        return *failure;
    }
    const Place place = find(path, false);
    if (place.error != 0 || !place.node) {
        return failed(place.error != 0 ? place.error : ENOENT);
    }
    if (!place.node->isLink()) {
        return failed(EINVAL);
    }
    into = place.node->contents;
    return {static_cast<std::int64_t>(into.size()), 0};
}

FileSystem::Result InMemoryFileSystem::list(const std::string& folder,
                                            std::vector<std::string>& names) {
    if (const auto failure = begin(Call::list)) {
        return *failure;
    }
    const Place place = find(folder, true);
    if (place.error != 0 || !place.node) {
        return failed(place.error != 0 ? place.error : ENOENT);
    }
    if (!place.node->isFolder()) {
        return failed(ENOTDIR);
    }
    if (!place.node->mayRead()) {
        return failed(EACCES);
    }
    names = place.node->names();
    return {};
}

} // namespace oakfen
