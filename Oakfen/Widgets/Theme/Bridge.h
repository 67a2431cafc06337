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

/// A tooltip that shows a text of the person or of a bank as it stands. Escaped and marked as rich
/// text, since the toolkit guesses otherwise: "<b>" would be taken for markup, and "&amp;" not.
[[nodiscard]] inline QString plainToolTip(const QString& text) {
    if (text.isEmpty()) {
        return {};
    }
    const QString lines = text.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    return QStringLiteral("<qt>") + lines + QStringLiteral("</qt>");
}

} // namespace oakfen
