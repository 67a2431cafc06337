#pragma once

#include <QLineEdit>

namespace oakfen {

/// A field for a word to look for, with the sign of a search and a button that empties it.
class SearchField final : public QLineEdit {
public:
    explicit SearchField(const QString& prompt, QWidget* parent = nullptr);
};

} // namespace oakfen
