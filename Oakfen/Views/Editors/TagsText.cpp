#include "Oakfen/Views/Editors/TagsText.h"

#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

std::vector<std::string> tagsOf(std::string_view text) {
    std::vector<std::string> tags;
    for (const std::string_view piece : split(text, ',')) {
        if (const std::string_view tag = trimmingWhitespaces(piece); !tag.empty()) {
            tags.emplace_back(tag);
        }
    }
    return tags;
}

} // namespace oakfen
