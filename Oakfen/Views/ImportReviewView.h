#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// The sheet between reading a statement and adding its lines: the person chooses the account and
/// the lines.
class ImportReviewView {
public:
    ImportReviewView(AppEnvironment& environment, std::shared_ptr<const ImportSession> session);

    /// The lines that are ticked; at first, all.
    UUIDSet included;

    [[nodiscard]] const std::optional<UUID>& accountID() const { return accountID_; }
    void setAccountID(std::optional<UUID> accountID);

    [[nodiscard]] const std::vector<ImportedTransaction>& items() const { return session_->items; }
    /// "Import statement.csv".
    [[nodiscard]] static std::string heading(const ImportSession& session);
    /// How many lines there are, and how many of them the account has.
    [[nodiscard]] std::string summary() const;

    /// The account's entry that the line repeats, or null. Valid until the document or the account
    /// changes.
    [[nodiscard]] const Transaction* duplicate(std::size_t line) const;
    /// Says which entry that is; empty for a new line.
    [[nodiscard]] std::string duplicateDescription(std::size_t line) const;

    void setIncluded(std::size_t line, bool isIncluded);
    [[nodiscard]] bool isIncluded(std::size_t line) const;

    /// Needs an account and a line.
    [[nodiscard]] bool canImport() const;
    /// Adds the ticked lines that the account does not have yet.
    void importLines();

private:
    void findDuplicates() const;

    AppEnvironment& environment_;
    std::shared_ptr<const ImportSession> session_;
    std::optional<UUID> accountID_;
    // What each line repeats in that account, worked out once for an index.
    mutable std::shared_ptr<const LibraryIndex> duplicatesIndex_;
    mutable std::vector<const Transaction*> duplicates_;
};

} // namespace oakfen
