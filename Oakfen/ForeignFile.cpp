#include "Oakfen/ForeignFile.h"

#include <optional>

#include "Oakfen/FileActions.h"
#include "OakfenCore/Support/Files/FileCalls.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

namespace {

std::string_view formatName(ImportFormat format) {
    switch (format) {
    case ImportFormat::csv:
        return "CSV";
    case ImportFormat::qif:
        return "QIF";
    case ImportFormat::ofx:
        return "OFX";
    }
    return "";
}

} // namespace

ForeignFile describeForeignFile(FileSystem& files, const std::string& path) {
    const std::string quotedName = quoted(fileCalls::nameOf(path));
    std::optional<FileInformation> information;
    try {
        information = fileInformation(files, path);
    } catch (const FileError& error) {
        return {quotedName + " can’t be opened", error.localizedDescription() + "."};
    }
    if (!information) {
        return {quotedName + " isn’t there",
                "The name of a new data file must end in “.tarnwick”."};
    }
    const std::string title = quotedName + " isn’t an Oakfen data file";
    if (information->isFolder) {
        return {title, "It is a folder. Name the data file in it."};
    }
    if (const auto format = FileActions::statementFormat(path)) {
        return {title,
                "It looks like a bank’s statement (" + std::string(formatName(*format)) +
                    "). It stays as it is. Its transactions can be imported into your data file.",
                true};
    }
    return {title, information->size == 0 ? "It is empty. It stays as it is."
                                          : "It was made by another program. It stays as it is."};
}

} // namespace oakfen
