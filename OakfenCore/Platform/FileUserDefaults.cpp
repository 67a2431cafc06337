#include "OakfenCore/Platform/FileUserDefaults.h"

#include <utility>
#include <vector>

#include "OakfenCore/Platform/UserFolders.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {

namespace {

struct Entry {
    std::string key;
    std::string value;
};

/// With every "\" and line end, and in a key every "=" and "#", written so that the line can be
/// read back.
std::string escaped(std::string_view text, bool isKey) {
    std::string result;
    for (const char character : text) {
        switch (character) {
        case '\\':
            result += "\\\\";
            break;
        case '\n':
            result += "\\n";
            break;
        case '\r':
            result += "\\r";
            break;
        case '=':
        case '#':
            result += isKey ? std::string("\\") + character : std::string(1, character);
            break;
        default:
            result += character;
        }
    }
    return result;
}

std::string lineOf(std::string_view key, std::string_view value) {
    return escaped(key, true) + '=' + escaped(value, false);
}

/// Nothing for a line that is no setting: a comment, a heading, an empty line.
std::optional<Entry> settingIn(std::string_view line) {
    if (line.starts_with('#')) {
        return std::nullopt;
    }
    Entry setting;
    std::string* part = &setting.key;
    for (std::size_t index = 0; index < line.size(); ++index) {
        const char character = line[index];
        if (character == '\\' && index + 1 < line.size()) {
            const char next = line[++index];
            *part += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
        } else if (character == '=' && part == &setting.key) {
            part = &setting.value;
        } else {
            *part += character;
        }
    }
    return part == &setting.key ? std::nullopt : std::optional(setting);
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines = split(text, '\n');
    if (!lines.empty() && lines.back().empty()) {
        lines.pop_back();
    }
    return lines;
}

std::string fileText(FileSystem& files, const std::string& path) {
    return fileInformation(files, path) ? readFile(files, path) : std::string();
}

/// Long enough for a burst of changes to end in one write.
constexpr double secondsBeforeWriting = 0.5;

} // namespace

FileUserDefaults::FileUserDefaults(FileSystem& files, Scheduler& scheduler, std::string path)
    : files_(files), scheduler_(scheduler), path_(std::move(path)), writer_(scheduler) {
    std::string text;
    try {
        text = fileText(files_, path_);
    } catch (const LocalizedError&) {
        // Settings that can't be read are as if they were not there; the program runs without.
        return;
    }
    for (const std::string_view line : linesOf(text)) {
        if (const std::optional<Entry> setting = settingIn(line)) {
            values_.insert_or_assign(setting->key, setting->value);
        }
    }
}

FileUserDefaults::~FileUserDefaults() {
    settle();
}

std::string FileUserDefaults::defaultFilePath() {
    return userSettingsFolder() + "/Oakfen/Oakfen.conf";
}

std::optional<std::string> FileUserDefaults::string(std::string_view key) const {
    const auto found = values_.find(key);
    return found == values_.end() ? std::nullopt : std::optional(found->second);
}

void FileUserDefaults::setString(std::string_view key, std::string_view value) {
    change(key, std::string(value));
}

void FileUserDefaults::remove(std::string_view key) {
    change(key, std::nullopt);
}

void FileUserDefaults::change(std::string_view key, std::optional<std::string> value) {
    const bool differs = string(key) != value;
    if (differs) {
        if (value) {
            values_.insert_or_assign(std::string(key), *value);
        } else {
            values_.erase(std::string(key));
        }
        unwritten_.insert_or_assign(std::string(key), std::move(value));
    }
    if (!unwritten_.empty()) {
        writeSoon();
    }
    if (differs) {
        tellChanged(key);
    }
}

void FileUserDefaults::writeSoon() {
    if (!std::exchange(isHeld_, true)) {
        held_ = scheduler_.after(secondsBeforeWriting, [this] {
            isHeld_ = false;
            writeInBackground();
        });
    }
}

void FileUserDefaults::writeInBackground() {
    if (unwritten_.empty()) {
        return;
    }
    if (writer_.isBusy()) {
        writeSoon();
        return;
    }
    writer_.start(
        [&files = files_, path = path_, changes = unwritten_] { write(files, path, changes); },
        [this, changes = unwritten_](const std::optional<std::string>& error) {
            // A failure is not fatal: the values hold until the program ends.
            if (!error) {
                wereWritten(changes);
            }
        });
}

void FileUserDefaults::settle() {
    held_.cancel();
    isHeld_ = false;
    writer_.settle();
    if (unwritten_.empty()) {
        return;
    }
    try {
        write(files_, path_, unwritten_);
        unwritten_.clear();
    } catch (const LocalizedError&) {
        // Not fatal either.
    }
}

void FileUserDefaults::wereWritten(const Changes& changes) {
    for (const auto& [key, value] : changes) {
        const auto found = unwritten_.find(key);
        if (found != unwritten_.end() && found->second == value) {
            unwritten_.erase(found);
        }
    }
}

void FileUserDefaults::write(FileSystem& files, const std::string& path, const Changes& changes) {
    // The file is read again, since another window of the program may have written it.
    const std::string before = fileText(files, path);
    Changes rest = changes;
    std::string after;
    for (const std::string_view line : linesOf(before)) {
        const std::optional<Entry> entry = settingIn(line);
        const auto change = entry ? changes.find(entry->key) : changes.end();
        if (change == changes.end()) {
            after += std::string(line) + '\n';
        } else if (rest.erase(entry->key) > 0 && change->second) {
            after += lineOf(entry->key, *change->second) + '\n';
        }
    }
    for (const auto& [key, value] : rest) {
        if (value) {
            after += lineOf(key, *value) + '\n';
        }
    }
    writeOwnerOnly(files, after, path);
}

} // namespace oakfen
