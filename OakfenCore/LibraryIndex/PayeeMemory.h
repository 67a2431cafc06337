#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// The names that completion offers: each payee's latest entry, and the tags in use.
class PayeeMemory {
public:
    explicit PayeeMemory(const SharedArray<Transaction>& transactions);

    /// The latest entry of that payee, without regard to case and to blanks around it; or null.
    [[nodiscard]] const Transaction* latest(std::string_view payee) const;
    /// The payees as their latest entries spell them, in the locale's collation order.
    [[nodiscard]] const std::vector<std::string>& payees() const { return payees_; }
    /// In plain order.
    [[nodiscard]] const std::vector<std::string>& tags() const { return tags_; }

private:
    std::unordered_map<std::string, const Transaction*> latest_; // by the payee's normal form
    std::vector<std::string> payees_;
    std::vector<std::string> tags_;
};

} // namespace oakfen
