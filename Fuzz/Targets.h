#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

/// What random bytes are put through. A target takes any bytes and throws `Violation` when
/// something that must hold for all of them doesn't; libFuzzer looks for such bytes, and the tests
/// run every target on the seeds and on the findings of the past.
namespace oakfen::fuzz {

/// Something that must always hold did not.
class Violation : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

inline void require(bool holds, const std::string& rule) {
    if (!holds) {
        throw Violation(rule);
    }
}

/// A document's text: what can be read can be written, and is then read as the same.
void readDocument(std::string_view bytes);
/// Statements: every line is sound, and reading the text twice over gives the lines twice over.
void readCSVStatement(std::string_view bytes);
void readQIFStatement(std::string_view bytes);
void readOFXStatement(std::string_view bytes);
/// Amounts as statements write them, and numbers as plain digits.
void readAmount(std::string_view bytes);
/// Dates, one a line, by every pattern and in several zones.
void readDates(std::string_view bytes);
/// Each byte decides something about the next edit of an open document, or undoes one.
void editLedger(std::string_view bytes);

struct Target {
    std::string_view name;
    void (*run)(std::string_view bytes);
};

[[nodiscard]] std::span<const Target> targets();

/// The target of that name; throws `std::invalid_argument` for an unknown one.
[[nodiscard]] const Target& targetNamed(std::string_view name);

} // namespace oakfen::fuzz
