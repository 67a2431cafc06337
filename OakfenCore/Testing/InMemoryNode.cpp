#include "OakfenCore/Testing/InMemoryNode.h"

#include <algorithm>
#include <cerrno>
#include <deque>
#include <set>

#include "OakfenCore/Support/Files/FileCalls.h"

namespace oakfen {

FileInformation InMemoryFileSystem::Node::information() const {
    return {.device = 1,
            .inode = inode,
            .size = contents.size(),
            .modified = modified,
            .isRegularFile = kind == Kind::file,
            .isFolder = isFolder(),
            .permissions = permissions};
}

std::vector<std::string> InMemoryFileSystem::Node::names() const {
    std::vector<std::string> result;
    for (const auto& [name, node] : entries) {
        result.push_back(name);
    }
    return result;
}

InMemoryFileSystem::Place InMemoryFileSystem::find(const std::string& path, bool followLast) const {
    constexpr int mostLinks = 40;
    if (path.empty()) {
        return {.error = ENOENT};
    }
    std::deque<std::string> rest = fileCalls::pieces(path);
    std::vector<NodePointer> way{root_};
    int links = 0;
    while (!rest.empty()) {
        const std::string name = std::move(rest.front());
        rest.pop_front();
        const NodePointer folder = way.back();
        if (!folder->isFolder()) {
            return {.error = ENOTDIR};
        }
        if (!folder->mayEnter()) {
            return {.error = EACCES};
        }
        if (name == ".") {
            continue;
        }
        if (name == "..") {
            if (way.size() > 1) {
                way.pop_back();
            }
            continue;
        }
        const auto found = folder->entries.find(name);
        const NodePointer node = found == folder->entries.end() ? nullptr : found->second;
        if (node && node->isLink() && (followLast || !rest.empty())) {
            if (++links > mostLinks) {
                return {.error = ELOOP};
            }
            const std::deque<std::string> detour = fileCalls::pieces(node->contents);
            rest.insert(rest.begin(), detour.begin(), detour.end());
            if (node->contents.starts_with('/')) {
                way = {root_};
            }
            continue;
        }
        if (rest.empty()) {
            return {.folder = folder, .name = name, .node = node};
        }
        if (!node) {
            return {.error = ENOENT};
        }
        way.push_back(node);
    }
    // A path that ends in "/", "." or "..": a folder without a name of its own.
    return {.folder = way.back(), .name = ".", .node = way.back()};
}

InMemoryFileSystem::NodePointer InMemoryFileSystem::makeNode(Node node) {
    auto made = std::make_shared<Node>(std::move(node));
    made->inode = ++lastInode_;
    touch(*made);
    return made;
}

void InMemoryFileSystem::touch(Node& node) {
    node.modified = ++ticks_;
}

InMemoryFileSystem::NodePointer InMemoryFileSystem::nodeAt(const std::string& path) const {
    return find(path, true).node;
}

void InMemoryFileSystem::add(const std::string& path, NodePointer node) {
    NodePointer folder = root_;
    std::deque<std::string> names = fileCalls::pieces(path);
    while (names.size() > 1) {
        NodePointer& next = folder->entries[names.front()];
        if (!next) {
            next = makeNode({.kind = Node::Kind::folder, .permissions = 0755});
            folder->syncedEntries[names.front()] = next;
        }
        folder = next;
        names.pop_front();
    }
    folder->entries[names.front()] = node;
    folder->syncedEntries[names.front()] = std::move(node);
}

void InMemoryFileSystem::addFolder(const std::string& path, unsigned permissions) {
    add(path, makeNode({.kind = Node::Kind::folder, .permissions = permissions}));
}

void InMemoryFileSystem::addFile(const std::string& path, std::string_view contents,
                                 unsigned permissions) {
    const std::string text(contents);
    add(path, makeNode({.kind = Node::Kind::file,
                        .permissions = permissions,
                        .contents = text,
                        .syncedContents = text}));
}

void InMemoryFileSystem::addLink(const std::string& path, const std::string& target) {
    add(path, makeNode({.kind = Node::Kind::link,
                        .permissions = 0777,
                        .contents = target,
                        .syncedContents = target}));
}

void InMemoryFileSystem::overwrite(const std::string& path, std::string_view contents) {
    const NodePointer node = nodeAt(path);
    node->contents = contents;
    node->syncedContents = contents;
    touch(*node);
}

void InMemoryFileSystem::setModified(const std::string& path, std::int64_t time) {
    nodeAt(path)->modified = time;
}

void InMemoryFileSystem::moveByAnotherProgram(const std::string& from, const std::string& to) {
    const Place source = find(from, false);
    const NodePointer node = source.node;
    remove(from);
    add(to, node);
}

void InMemoryFileSystem::remove(const std::string& path) {
    const Place place = find(path, false);
    if (place.node) {
        place.folder->entries.erase(place.name);
        place.folder->syncedEntries.erase(place.name);
    }
}

std::optional<std::string> InMemoryFileSystem::contents(const std::string& path) const {
    const NodePointer node = nodeAt(path);
    return node && node->kind == Node::Kind::file ? std::optional(node->contents) : std::nullopt;
}

std::optional<unsigned> InMemoryFileSystem::permissions(const std::string& path) const {
    const NodePointer node = nodeAt(path);
    return node ? std::optional(node->permissions) : std::nullopt;
}

std::vector<std::string> InMemoryFileSystem::names(const std::string& folder) const {
    const NodePointer node = nodeAt(folder);
    return node ? node->names() : std::vector<std::string>();
}

bool InMemoryFileSystem::isLink(const std::string& path) const {
    const Place place = find(path, false);
    return place.node && place.node->isLink();
}

void InMemoryFileSystem::failCall(int number, int error, Repeat repeat) {
    countedKind_.reset();
    callsUntilFailure_ = number;
    failure_ = error;
    repeat_ = repeat;
    hasFailed_ = false;
}

void InMemoryFileSystem::failCall(Call call, int number, int error, Repeat repeat) {
    failCall(number, error, repeat);
    countedKind_ = call;
}

void InMemoryFileSystem::failAll(Call call, int error) {
    failingKinds_[static_cast<std::size_t>(call)] = error;
    hasFailed_ = false;
}

void InMemoryFileSystem::stopFailing() {
    callsUntilFailure_ = 0;
    failingKinds_.fill(0);
    freeSpace_ = std::numeric_limits<std::size_t>::max();
}

void InMemoryFileSystem::crash(const Crash& crash) {
    stopFailing();
    descriptors_.clear();
    std::vector<NodePointer> rest{root_};
    std::set<const Node*> seen;
    while (!rest.empty()) {
        const NodePointer node = rest.back();
        rest.pop_back();
        if (!seen.insert(node.get()).second) {
            continue;
        }
        if (node->contents != node->syncedContents) {
            node->contents.resize(std::min(node->contents.size(), crash.keptBytes));
            node->syncedContents = node->contents;
        }
        if (crash.keepsNames) {
            node->syncedEntries = node->entries;
        } else {
            node->entries = node->syncedEntries;
        }
        for (const auto& [name, child] : node->entries) {
            rest.push_back(child);
        }
    }
}

} // namespace oakfen
