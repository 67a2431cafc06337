#pragma once

#include <string_view>

namespace oakfen {

/// One of the person's settings: the key under which it is kept, and its value while nothing that
/// can be read is stored there.
template <typename Value>
struct Setting {
    std::string_view key;
    Value fallback;
};

/// All settings of the program, in one list. The keys stand in files that people have.
namespace settings {

/// The choice to run without a password. Kept for each data file by itself: under this key for the
/// usual one.
inline constexpr Setting<bool> dataFileUnencrypted{"dataFileUnencrypted", false};

/// Whether the window asks for the system's authentication when the program starts.
inline constexpr Setting<bool> requireAuthentication{"requireAuthentication", false};

/// Whether the sidebar lists closed accounts.
inline constexpr Setting<bool> showClosedAccounts{"showClosedAccounts", false};

inline constexpr Setting<bool> autoBackupEnabled{"autoBackupEnabled", true};
inline constexpr Setting<long long> autoBackupIntervalDays{"autoBackupIntervalDays", 1};
/// How many backups are kept.
inline constexpr Setting<long long> autoBackupKeep{"autoBackupKeep", 10};
inline constexpr Setting<bool> autoBackupPasswordProtected{"autoBackupPasswordProtected", true};
/// In seconds since 1970; 0 or less for never.
inline constexpr Setting<double> autoBackupLastDate{"autoBackupLastDate", 0};
/// The path of the folder that was chosen for backups; empty for the one beside the data file.
inline constexpr Setting<std::string_view> autoBackupFolder{"autoBackupFolderBookmark", ""};

/// The raw value of the report that is shown.
inline constexpr Setting<std::string_view> selectedReport{"selectedReport", "spendingByCategory"};
/// The raw value of the dates that reports cover.
inline constexpr Setting<std::string_view> reportRange{"reportRange", "yearToDate"};

} // namespace settings

} // namespace oakfen
