#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "OakfenCore/Importers/StatementImporter.h"
#include "OakfenCore/Models/Enumerations.h"
#include "OakfenCore/Platform/UserDefaults.h"
#include "OakfenCore/Support/Values/Observers.h"
#include "OakfenCore/Support/Values/UUID.h"

namespace oakfen {

struct FigureLines;

/// A place that the detail area can show: an account or one of the overview screens.
struct SidebarItem {
    enum class Kind { account, dashboard, bills, budget, reports, investing, goals, categories };

    Kind kind = Kind::dashboard;
    /// For `account` only.
    UUID accountID = {};

    [[nodiscard]] static SidebarItem account(const UUID& id) { return {Kind::account, id}; }

    friend bool operator==(const SidebarItem&, const SidebarItem&) = default;
};

[[nodiscard]] std::string_view title(SidebarItem::Kind kind) noexcept;
[[nodiscard]] std::string_view symbolName(SidebarItem::Kind kind) noexcept;

/// The items without an account, in the order of the sidebar and of the Go menu.
[[nodiscard]] const std::vector<SidebarItem>& overviewItems();

/// A parsed statement on its way to the review sheet.
struct ImportSession {
    UUID id;
    std::string fileName;
    std::vector<ImportedTransaction> items;
    /// The proposed target account.
    UUID accountID;

    friend bool operator==(const ImportSession&, const ImportSession&) = default;
};

/// The one modal sheet that can be open. An absent payload means a new record.
struct ActiveSheet {
    struct EditAccount {
        UUID id;
        friend bool operator==(const EditAccount&, const EditAccount&) = default;
    };
    struct NewTransaction {
        std::optional<UUID> accountID = {};
        friend bool operator==(const NewTransaction&, const NewTransaction&) = default;
    };
    struct EditTransaction {
        UUID id;
        friend bool operator==(const EditTransaction&, const EditTransaction&) = default;
    };
    /// Two entries or more at once.
    struct EditSeveral {
        std::shared_ptr<const UUIDSet> ids;
        friend bool operator==(const EditSeveral& a, const EditSeveral& b) {
            return a.ids == b.ids || *a.ids == *b.ids;
        }
    };
    struct Reconcile {
        UUID accountID;
        friend bool operator==(const Reconcile&, const Reconcile&) = default;
    };
    struct ImportReview {
        std::shared_ptr<const ImportSession> session;
        friend bool operator==(const ImportReview& a, const ImportReview& b) {
            return a.session == b.session || *a.session == *b.session;
        }
    };
    struct Scheduled {
        std::optional<UUID> id = {};
        /// For a new one: the entry that is to come again.
        std::optional<UUID> likeEntry = {};
        friend bool operator==(const Scheduled&, const Scheduled&) = default;
    };
    /// The next occurrence of a reminder, with another amount or on another day.
    struct EnterReminder {
        UUID id;
        friend bool operator==(const EnterReminder&, const EnterReminder&) = default;
    };
    struct Goal {
        std::optional<UUID> id = {};
        friend bool operator==(const Goal&, const Goal&) = default;
    };
    /// Money put aside for a goal, or taken back.
    struct Contribute {
        UUID goalID;
        friend bool operator==(const Contribute&, const Contribute&) = default;
    };
    struct Category {
        std::optional<UUID> id = {};
        CategoryKind kind = CategoryKind::expense;
        friend bool operator==(const Category&, const Category&) = default;
    };
    struct NewAccount {
        friend bool operator==(const NewAccount&, const NewAccount&) = default;
    };
    /// For entries that are to be filed under one category; they may be many.
    struct SetCategory {
        std::shared_ptr<const UUIDSet> ids;
        friend bool operator==(const SetCategory& a, const SetCategory& b) {
            return a.ids == b.ids || *a.ids == *b.ids;
        }
    };

    std::variant<EditAccount, NewTransaction, EditTransaction, Reconcile, ImportReview, Scheduled,
                 EnterReminder, Goal, Contribute, Category, NewAccount, SetCategory, EditSeveral>
        content;

    friend bool operator==(const ActiveSheet&, const ActiveSheet&) = default;
};

/// A quiet word at the foot of the window on something that was done or happened. It goes by
/// itself.
struct Notice {
    std::string text;
    /// A button beside the text; none while empty.
    std::string actionTitle = {};
    std::function<void()> action = {};
    /// Stays until it is dismissed: it speaks of something that is still so.
    bool stays = false;
    /// Goes with the next change of the document: its action would then mean another.
    bool isOfLastChange = false;
};

/// The navigation state: all that screens and commands tell each other. A write of an equal value
/// notifies nobody. Lives on the main thread.
class AppState {
public:
    explicit AppState(const UserDefaults& defaults);

    /// What the detail area shows; absent shows the dashboard, with nothing selected.
    [[nodiscard]] const std::optional<SidebarItem>& selection() const { return selection_; }
    void setSelection(std::optional<SidebarItem> selection);
    /// The account inside the selection; absent for every other selection.
    [[nodiscard]] std::optional<UUID> selectedAccountID() const;

    [[nodiscard]] const std::optional<ActiveSheet>& sheet() const { return sheet_; }
    void setSheet(std::optional<ActiveSheet> sheet);

    /// The user has passed the system's prompt, or need not.
    [[nodiscard]] bool isUnlocked() const { return isUnlocked_; }
    void setUnlocked(bool unlocked);

    /// While present, an alert shows this text.
    [[nodiscard]] const std::optional<std::string>& alertMessage() const { return alertMessage_; }
    void setAlertMessage(std::optional<std::string> message);

    /// While present, a progress pill shows this text over the main screen.
    [[nodiscard]] const std::optional<std::string>& busyMessage() const { return busyMessage_; }
    void setBusyMessage(std::optional<std::string> message);

    /// The last notice that has not gone yet.
    [[nodiscard]] const std::optional<Notice>& notice() const { return notice_; }
    /// Takes the place of the one that is there.
    void showNotice(Notice notice);
    void dismissNotice();

    /// The categories that entries were filed under since the program began, the latest first; a
    /// few, and some may be gone. Never written anywhere.
    [[nodiscard]] const std::vector<UUID>& recentCategories() const { return recentCategories_; }
    void rememberCategory(const UUID& id);

    /// Does the work once `isFree` holds: at once, or when `doWhatWaits` finds it so. What waits is
    /// forgotten with the state.
    void whenFree(std::function<bool()> isFree, std::function<void()> work);
    /// Whether work waits that has not been done.
    [[nodiscard]] bool hasWaitingWork() const { return !waiting_.empty(); }
    /// Does the work that has waited long enough, in the order in which it was asked for.
    void doWhatWaits();

    Observers<> selectionChanged;
    Observers<> sheetChanged;
    Observers<> lockChanged;
    Observers<> alertChanged;
    Observers<> busyChanged;
    Observers<> noticeChanged;
    /// An editor has entered or changed the entry of that id.
    Observers<const UUID&> transactionSaved;
    /// The person wants to see the entry of that id in the register that is shown.
    Observers<const UUID&> entryWanted;
    /// The person wants to see what makes up a figure.
    Observers<const FigureLines&> linesWanted;

private:
    struct WaitingWork {
        std::function<bool()> isFree;
        std::function<void()> work;
    };

    std::optional<SidebarItem> selection_ = SidebarItem{};
    std::optional<ActiveSheet> sheet_;
    bool isUnlocked_ = true;
    std::optional<std::string> alertMessage_;
    std::optional<std::string> busyMessage_;
    std::optional<Notice> notice_;
    std::vector<UUID> recentCategories_;
    std::vector<WaitingWork> waiting_;
};

} // namespace oakfen
