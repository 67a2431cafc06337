#include "OakfenCore/Importers/QIFReader.h"

#include "OakfenCore/Importers/AmountParser.h"
#include "OakfenCore/Importers/Characters.h"
#include "OakfenCore/Importers/DateParser.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen {

namespace {

/// The length of the line end at that position, 0 when there is none.
std::size_t lineEndLength(std::string_view text, std::size_t position) {
    const auto byte = static_cast<unsigned char>(text[position]);
    if (byte < 0x80U) {
        return byte >= '\n' && byte <= '\r' ? 1 : 0;
    }
    for (const std::string_view end : {"\u0085", "\u2028", "\u2029"}) {
        if (text.substr(position, end.size()) == end) {
            return end.size();
        }
    }
    return 0;
}

struct PendingRecord {
    std::optional<Date> date;
    std::optional<Decimal> amount;
    std::string payee;
    std::string memo;
    std::string checkNumber;
    std::optional<std::string> categoryName;
};

class QIFReader {
public:
    explicit QIFReader(const Calendar& calendar) : calendar_(calendar) {}

    void read(std::string_view line) {
        line = trimmingWhitespaces(line);
        if (line.empty() || !isWholeCharacter(line, 0)) {
            return;
        }
        if (line.front() == '!') {
            isInvestment_ = findIgnoringASCIICase(line, "invst") != std::string_view::npos;
            pending_ = {};
        } else if (!isInvestment_) {
            readField(line.front(), trimmingWhitespaces(line.substr(1)));
        }
    }

    [[nodiscard]] std::vector<ImportedTransaction> takeLines() { return std::move(lines_); }

private:
    void readField(char code, std::string_view value) {
        switch (code) {
        case 'D':
            pending_.date = DateParser::parseQIF(value, calendar_);
            break;
        case 'T':
        case 'U':
            pending_.amount = AmountParser::parse(value);
            break;
        case 'P':
            pending_.payee = value;
            break;
        case 'M':
            pending_.memo = value;
            break;
        case 'N':
            pending_.checkNumber = value;
            break;
        case 'L':
            readCategory(value);
            break;
        case '^':
            finishRecord();
            break;
        default:
            break;
        }
    }

    /// A name in brackets is the other account of a transfer.
    void readCategory(std::string_view value) {
        if (value.starts_with('[') && isWholeCharacter(value, 0)) {
            pending_.categoryName.reset();
        } else {
            pending_.categoryName = value;
        }
    }

    void finishRecord() {
        if (pending_.date && pending_.amount) {
            lines_.push_back({
                .id = UUID::random(),
                .date = *pending_.date,
                .payee = std::move(pending_.payee),
                .amount = *pending_.amount,
                .memo = std::move(pending_.memo),
                .checkNumber = std::move(pending_.checkNumber),
                .categoryName = std::move(pending_.categoryName),
            });
        }
        pending_ = {};
    }

    const Calendar& calendar_;
    bool isInvestment_ = false;
    PendingRecord pending_;
    std::vector<ImportedTransaction> lines_;
};

} // namespace

std::vector<ImportedTransaction> readQIF(std::string_view text, const Calendar& calendar) {
    QIFReader reader(calendar);
    std::size_t lineStart = 0;
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t length = lineEndLength(text, position);
        if (length == 0) {
            ++position;
            continue;
        }
        reader.read(text.substr(lineStart, position - lineStart));
        position += length;
        lineStart = position;
    }
    reader.read(text.substr(lineStart));
    return reader.takeLines();
}

} // namespace oakfen
