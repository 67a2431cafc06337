#pragma once

#include <QString>
#include <QVariant>

/// How the windows stood when the program was left (geometry, column widths, the folders that file
/// panels begin in), in a small file of the person's state folder. Nothing of the ledger belongs
/// here: no name, no id, no search.
namespace oakfen::windowState {

/// What was kept under that key; invalid when nothing was.
[[nodiscard]] QVariant value(const QString& key);

void setValue(const QString& key, const QVariant& value);

/// While it lives, nothing of the person's is read or written: what is set is gone with it.
class InMemory {
public:
    InMemory();
    ~InMemory();
    InMemory(const InMemory&) = delete;
    InMemory& operator=(const InMemory&) = delete;
};

} // namespace oakfen::windowState
