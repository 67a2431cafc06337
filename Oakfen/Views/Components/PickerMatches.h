#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/Components/CategoryOffer.h"
#include "Oakfen/Views/Components/Components.h"

namespace oakfen {

/// One line of the list beneath a picker.
struct PickerLine {
    enum class Kind {
        header,
        choice,
        creation, ///< makes what was typed
        remark,   ///< says why nothing can be chosen or made
    };

    Kind kind = Kind::choice;
    std::string title = {};
    /// The place of a choice among the picker's rows.
    std::size_t row = 0;

    [[nodiscard]] bool canBeChosen() const {
        return kind == Kind::choice || kind == Kind::creation;
    }

    friend bool operator==(const PickerLine&, const PickerLine&) = default;
};

/// The rows with what is typed in any part of their title, beneath the headers of their sections,
/// and at the end what can be made of it. All rows while nothing is typed.
[[nodiscard]] std::vector<PickerLine> pickerLines(const std::vector<PickerRow>& rows,
                                                  std::string_view typed,
                                                  const CategoryOffer& offer = {});

/// The place of the row that the typed text means: the one of that title, else of that name at the
/// end of its path, else the one that begins with that word, else the first with the text in its
/// title. No text means the row that stands
/// for no choice, where there is one.
[[nodiscard]] std::optional<std::size_t> meantRow(const std::vector<PickerRow>& rows,
                                                  std::string_view typed);

/// What a picker is a choice of, for its texts.
enum class PickerSubject { record, account, category };

/// Why a text that means no row can't stay: "“Vet” isn’t a category."
[[nodiscard]] std::string pickerExplanation(PickerSubject subject, std::string_view typed,
                                            const CategoryOffer& offer = {});

} // namespace oakfen
