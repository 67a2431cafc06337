#pragma once

namespace oakfen {

/// What the menus and screens name but not every version can do. Whatever is listed as unavailable
/// is shown disabled, so that people can see what is coming and nothing moves when it arrives.
enum class Feature {
    transactionEditor,
    reminderEditor,
    categoryEditor,
    reconcile,
    enterReminders,
    quickenImport,
    exporting,
    backups,
    settings,
    passwords,
    sampleData,
};

/// The one list of what this version offers.
[[nodiscard]] constexpr bool isAvailable(Feature feature) noexcept {
    switch (feature) {
    case Feature::transactionEditor:
    case Feature::reconcile:
    case Feature::enterReminders:
    case Feature::exporting:
    case Feature::sampleData:
        return true;
    case Feature::reminderEditor:
    case Feature::categoryEditor:
    case Feature::quickenImport:
    case Feature::backups:
    case Feature::settings:
    case Feature::passwords:
        return false;
    }
    return false;
}

} // namespace oakfen
