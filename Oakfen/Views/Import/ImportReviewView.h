#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Oakfen/Views/Import/ImportReviewTable.h"
#include "Oakfen/Views/Screen.h"

namespace oakfen {

/// What the review shows.
struct ImportReviewContent {
    /// How many lines there are, and how many of them the account has.
    std::string summary;
    /// Needs an account and a line.
    bool canImport = false;
    std::shared_ptr<const Table<ImportReviewRow>> table;

    friend bool operator==(const ImportReviewContent&, const ImportReviewContent&) = default;
};

/// The sheet between reading a statement and adding its lines: the person chooses the account and
/// the lines.
class ImportReviewView final : public Screen<ImportReviewContent> {
public:
    ImportReviewView(AppEnvironment& environment, std::shared_ptr<const ImportSession> session);

    [[nodiscard]] const std::optional<UUID>& accountID() const { return accountID_; }
    void setAccountID(std::optional<UUID> accountID);

    /// The lines that are ticked; at first, all.
    [[nodiscard]] const UUIDSet& included() const { return included_; }
    /// Ticks the lines, or leaves them out.
    void setIncluded(const std::vector<UUID>& ids, bool isIncluded);

    [[nodiscard]] const std::vector<ImportedTransaction>& items() const { return session_->items; }
    /// "Import statement.csv".
    [[nodiscard]] static std::string heading(const ImportSession& session);

    /// Adds the ticked lines that the account does not have yet.
    void importLines();

protected:
    [[nodiscard]] ImportReviewContent derive(const ImportReviewContent* earlier) const override;

private:
    /// What each line repeats in the account.
    struct Duplicates {
        std::shared_ptr<const LibraryIndex> index;
        std::optional<UUID> accountID;
        std::vector<const Transaction*> matches;
    };

    [[nodiscard]] const Duplicates& duplicates() const;
    [[nodiscard]] bool canImport() const { return accountID_ && !included_.empty(); }

    std::shared_ptr<const ImportSession> session_;
    std::optional<UUID> accountID_;
    UUIDSet included_;
    // Found once for an index and an account, since ticks change more often.
    mutable Duplicates duplicates_;
};

} // namespace oakfen
