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
    /// "Import 142": how many lines come in, where any do.
    std::string importTitle;
    /// What the lines that come in add to the account and take from it; this is zero or negative.
    Decimal moneyIn;
    Decimal moneyOut;
    /// Which categories the lines name that the document doesn't have, and what becomes of these;
    /// empty where there is none.
    std::string note;
    /// Whether the account has any of the lines.
    bool hasDuplicates = false;
    /// Whether a line is left to be ticked, and one whose tick can be taken away.
    bool canTick = false;
    bool canUntick = false;
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
    void tickAll();
    void tickNone();

    [[nodiscard]] const std::vector<ImportedTransaction>& items() const { return session_->items; }
    /// "Import statement.csv".
    [[nodiscard]] static std::string heading(const ImportSession& session);

    /// Adds the ticked lines that the account does not have yet.
    void importLines();

protected:
    [[nodiscard]] ImportReviewContent derive(const ImportReviewContent* earlier) const override;

private:
    /// What the account and the document make of each line.
    struct Findings {
        std::shared_ptr<const LibraryIndex> index;
        std::optional<UUID> accountID;
        /// The rows, ticks aside.
        std::vector<ImportReviewRow> rows;
    };

    [[nodiscard]] const Findings& findings() const;
    [[nodiscard]] std::string importTitle(const std::vector<ImportReviewRow>& rows) const;
    void includeAll();
    [[nodiscard]] bool canImport() const { return accountID_ && !included_.empty(); }

    std::shared_ptr<const ImportSession> session_;
    std::optional<UUID> accountID_;
    UUIDSet included_;
    // Found once for an index and an account, since ticks change more often.
    mutable Findings findings_;
};

} // namespace oakfen
