#include "OakfenCore/Importers/OFXReader.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "OakfenCore/Importers/AmountParser.h"
#include "OakfenCore/Importers/Characters.h"
#include "OakfenCore/Importers/DateParser.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen {

namespace {

/// Finds a tag again and again, ever further on. Remembers the last find, so that a text with many
/// of one tag and none of another is searched but once.
class TagSearch {
public:
    TagSearch(std::string_view text, std::string_view tag) : text_(text), tag_(tag) {}

    /// The tag's next place at or after `start`, which never goes back; `npos` when there is none.
    std::size_t next(std::size_t start) {
        if (!hasSearched_ || found_ < start) {
            found_ = findIgnoringASCIICase(text_, tag_, start);
            hasSearched_ = true;
        }
        return found_;
    }

private:
    std::string_view text_;
    std::string_view tag_;
    std::size_t found_ = 0;
    bool hasSearched_ = false;
};

/// The ampersand comes last, so that an escaped entity is left as the text it stands for.
std::string decodingEntities(std::string_view text) {
    using Entity = std::pair<std::string_view, std::string_view>;
    constexpr std::array<Entity, 5> entities = {
        Entity("&lt;", "<"),   Entity("&gt;", ">"),  Entity("&quot;", "\""),
        Entity("&apos;", "'"), Entity("&amp;", "&"),
    };
    std::string decoded(text);
    for (const auto& [entity, character] : entities) {
        if (decoded.find('&') == std::string::npos) {
            break;
        }
        decoded = replacingAll(decoded, entity, character);
    }
    return decoded;
}

std::optional<ImportedTransaction> readBlock(std::string_view block, const Calendar& calendar) {
    const auto posted = ofxValue("DTPOSTED", block);
    const auto date = posted ? DateParser::parseOFX(*posted, calendar) : std::nullopt;
    if (!date) {
        return std::nullopt;
    }
    const auto figure = ofxValue("TRNAMT", block);
    const auto amount = figure ? AmountParser::parse(*figure) : std::nullopt;
    if (!amount) {
        return std::nullopt;
    }
    auto payee = ofxValue("NAME", block);
    if (!payee) {
        payee = ofxValue("PAYEE", block);
    }
    return ImportedTransaction{
        .id = UUID::random(),
        .date = *date,
        .payee = decodingEntities(payee.value_or("")),
        .amount = *amount,
        .memo = decodingEntities(ofxValue("MEMO", block).value_or("")),
        .checkNumber = std::string(ofxValue("CHECKNUM", block).value_or("")),
        .importID = std::optional<std::string>(ofxValue("FITID", block)),
    };
}

} // namespace

std::vector<ImportedTransaction> readOFX(std::string_view text, const Calendar& calendar) {
    constexpr std::string_view openingTag = "<STMTTRN>";
    TagSearch opening(text, openingTag);
    TagSearch closing(text, "</STMTTRN>");
    std::vector<ImportedTransaction> lines;
    std::size_t start = opening.next(0);
    while (start != std::string_view::npos) {
        start += openingTag.size();
        const std::size_t end = std::min({closing.next(start), opening.next(start), text.size()});
        if (auto line = readBlock(text.substr(start, end - start), calendar)) {
            lines.push_back(std::move(*line));
        }
        start = opening.next(end);
    }
    return lines;
}

std::optional<std::string_view> ofxValue(std::string_view tag, std::string_view block) {
    const std::string opening = "<" + std::string(tag) + ">";
    const std::size_t found = findIgnoringASCIICase(block, opening);
    if (found == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view rest = block.substr(found + opening.size());
    std::size_t end = 0;
    for (; end < rest.size(); ++end) {
        if (rest[end] == '\r' && end + 1 < rest.size() && rest[end + 1] == '\n') {
            ++end; // CR LF is one character, and neither of the line ends that stop here
        } else if (rest[end] == '\n' || rest[end] == '\r' ||
                   (rest[end] == '<' && isWholeCharacter(rest, end))) {
            break;
        }
    }
    const std::string_view value = trimmingWhitespaces(rest.substr(0, end));
    return value.empty() ? std::nullopt : std::optional(value);
}

} // namespace oakfen
