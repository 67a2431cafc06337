#include "Benchmarks/Statements.h"

#include <array>
#include <cstdio>

namespace oakfen::benchmarks {

namespace {

/// What one line says, as texts.
struct Line {
    std::array<char, 16> date{}; // year, month and day without separators
    std::string payee;
    std::string amount;
    std::string id;
};

Line makeLine(std::size_t number) {
    Line line;
    std::snprintf(line.date.data(), line.date.size(), "2025%02u%02u",
                  static_cast<unsigned>(number / 28 % 12 + 1),
                  static_cast<unsigned>(number % 28 + 1));
    line.payee.append("Maple Café No. ").append(std::to_string(number % 400));
    line.amount.append("-").append(std::to_string(number % 900));
    line.amount.append(".").append(std::to_string(10 + number % 90));
    line.id.append("20250315-").append(std::to_string(number));
    return line;
}

void appendCSV(std::string& text, const Line& line) {
    const std::string_view date(line.date.data());
    text.append(date.substr(0, 4)).append("-").append(date.substr(4, 2)).append("-");
    text.append(date.substr(6, 2)).append(",\"").append(line.payee).append("\",");
    text.append(line.amount).append(",Food: Coffee,\n");
}

void appendQIF(std::string& text, const Line& line) {
    const std::string_view date(line.date.data());
    text.append("D").append(date.substr(4, 2)).append("/").append(date.substr(6, 2));
    text.append("/").append(date.substr(0, 4)).append("\nT").append(line.amount);
    text.append("\nP").append(line.payee).append("\nLFood:Coffee\n^\n");
}

void appendOFX(std::string& text, const Line& line) {
    text.append("<STMTTRN>\n<TRNTYPE>DEBIT\n<DTPOSTED>").append(line.date.data());
    text.append("120000\n<TRNAMT>").append(line.amount).append("\n<FITID>").append(line.id);
    text.append("\n<NAME>").append(line.payee).append("\n</STMTTRN>\n");
}

} // namespace

std::string makeStatement(ImportFormat format, std::size_t lines) {
    std::string text;
    switch (format) {
    case ImportFormat::csv:
        text = "Date,Description,Amount,Category,Memo\n";
        break;
    case ImportFormat::qif:
        text = "!Type:Bank\n";
        break;
    case ImportFormat::ofx:
        text = "OFXHEADER:100\n\n<OFX>\n<BANKTRANLIST>\n";
        break;
    }
    for (std::size_t number = 0; number < lines; ++number) {
        const Line line = makeLine(number);
        switch (format) {
        case ImportFormat::csv:
            appendCSV(text, line);
            break;
        case ImportFormat::qif:
            appendQIF(text, line);
            break;
        case ImportFormat::ofx:
            appendOFX(text, line);
            break;
        }
    }
    return text;
}

} // namespace oakfen::benchmarks
