#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace oakfen {

/// Our UTF-8 text as the toolkit's.
[[nodiscard]] inline QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The toolkit's text as ours.
[[nodiscard]] inline std::string utf8(const QString& text) {
    return text.toStdString();
}

} // namespace oakfen
