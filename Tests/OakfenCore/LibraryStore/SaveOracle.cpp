#include "Tests/OakfenCore/LibraryStore/SaveOracle.h"

#include <algorithm>

#include "OakfenCore/Support/Files/FileCalls.h"

namespace oakfen {

namespace {

constexpr std::size_t longestQuote = 40;

std::string inQuotes(const Contents& contents) {
    return contents ? "“" + contents->substr(0, longestQuote) + "” (" +
                          std::to_string(contents->size()) + " bytes)"
                    : "no file";
}

class Oracle {
public:
    Oracle(FileSystem& files, const std::string& path, const SaveExpectation& expectation)
        : files_(files), path_(path), expectation_(expectation) {}

    std::vector<std::string> complaints() {
        checkFile();
        checkFolder();
        checkKept();
        return complaints_;
    }

private:
    void checkFile() {
        const auto information = fileInformation(files_, path_);
        const Contents contents =
            information ? std::optional(readFile(files_, path_)) : std::nullopt;
        if (contents) {
            found_.push_back(*contents);
        }
        if (information && information->permissions != 0600) {
            complaints_.emplace_back("others may use the file");
        }
        if (contents == expectation_.later) {
            return;
        }
        if (!expectation_.failureWasTold) {
            complaints_.push_back("nothing was told, yet there is " + inQuotes(contents));
        } else if (std::ranges::find(expectation_.earlier, contents) ==
                   expectation_.earlier.end()) {
            complaints_.push_back("neither earlier nor later: " + inQuotes(contents));
        }
    }

    void checkFolder() {
        const std::string folder = fileCalls::folderOf(path_);
        const std::string name = fileCalls::nameOf(path_);
        std::vector<std::string> names;
        (void)files_.list(folder, names);
        for (const std::string& other : names) {
            if (isSetAside(other)) {
                found_.push_back(readFile(files_, folder + "/" + other));
            } else if (other != name && other != "." + name + ".saving") {
                complaints_.push_back("unexpected file " + other);
            }
        }
    }

    void checkKept() {
        for (const std::vector<std::string>& group : expectation_.kept) {
            const bool isThere = std::ranges::any_of(group, [&](const std::string& bytes) {
                return std::ranges::find(found_, bytes) != found_.end();
            });
            if (!isThere) {
                complaints_.push_back("lost: " + inQuotes(group.front()));
            }
        }
    }

    FileSystem& files_;
    const std::string& path_;
    const SaveExpectation& expectation_;
    std::vector<std::string> found_;
    std::vector<std::string> complaints_;
};

} // namespace

std::vector<std::string> complaints(FileSystem& files, const std::string& path,
                                    const SaveExpectation& expectation) {
    return Oracle(files, path, expectation).complaints();
}

bool isSetAside(const std::string& name) {
    const char* const kinds[] = {".damaged-", ".other-", ".unsaved-"};
    return std::ranges::any_of(
        kinds, [&](const char* kind) { return name.find(kind) != std::string::npos; });
}

} // namespace oakfen
