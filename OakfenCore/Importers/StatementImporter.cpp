#include "OakfenCore/Importers/StatementImporter.h"

#include "OakfenCore/Importers/CSVReader.h"
#include "OakfenCore/Importers/OFXReader.h"
#include "OakfenCore/Importers/QIFReader.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

std::string description(ImportError::Kind kind) {
    switch (kind) {
    case ImportError::Kind::unreadable:
        return "The file couldn’t be read as text.";
    case ImportError::Kind::unsupportedFormat:
        return "Choose a CSV, QIF, OFX or QFX file.";
    case ImportError::Kind::noTransactions:
        return "No transactions were found in the file.";
    case ImportError::Kind::fileTooLarge:
        break;
    }
    return "The file is larger than 25 MB.";
}

std::vector<ImportedTransaction> read(std::string_view text, ImportFormat format,
                                      const Calendar& calendar) {
    switch (format) {
    case ImportFormat::csv:
        return readCSV(text, calendar);
    case ImportFormat::qif:
        return readQIF(text, calendar);
    case ImportFormat::ofx:
        break;
    }
    return readOFX(text, calendar);
}

} // namespace

ImportError::ImportError(Kind kind) : LocalizedError(description(kind)), kind_(kind) {}

std::optional<ImportFormat> importFormat(std::string_view fileExtension) {
    const std::string extension = lowercased(fileExtension);
    if (extension == "csv" || extension == "txt") {
        return ImportFormat::csv;
    }
    if (extension == "qif") {
        return ImportFormat::qif;
    }
    if (extension == "ofx" || extension == "qfx" || extension == "qbo") {
        return ImportFormat::ofx;
    }
    return std::nullopt;
}

std::vector<ImportedTransaction>
StatementImporter::parse(std::string_view data, ImportFormat format, const Calendar& calendar) {
    if (data.size() > maxBytes) {
        throw ImportError(ImportError::Kind::fileTooLarge);
    }
    // Every byte sequence reads as Latin-1, so none is unreadable.
    std::vector<ImportedTransaction> lines = isValidUTF8(data)
                                                 ? read(data, format, calendar)
                                                 : read(latin1ToUTF8(data), format, calendar);
    if (lines.empty()) {
        throw ImportError(ImportError::Kind::noTransactions);
    }
    return lines;
}

} // namespace oakfen
