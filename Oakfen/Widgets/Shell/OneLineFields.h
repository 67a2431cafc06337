#pragma once

#include <QObject>

namespace oakfen {

/// Keeps what is pasted or dropped into a field of one line on that line: a blank stands in the
/// place of each line break, and nothing in a password. What a record holds is left as it is until
/// the person edits it.
class OneLineFields final : public QObject {
    Q_OBJECT

public:
    /// In force in the whole application for as long as the parent lives.
    explicit OneLineFields(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace oakfen
