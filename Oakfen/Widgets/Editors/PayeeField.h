#pragma once

#include <QLineEdit>
#include <functional>

class QStringListModel;

namespace oakfen {

/// A field for a payee that offers known ones in a list beneath it.
class PayeeField final : public QLineEdit {
public:
    explicit PayeeField(const QString& title, QWidget* parent = nullptr);

    /// Shows another payee without offering any.
    void setPayee(const QString& payee);

    /// What to offer for the present text.
    std::function<QStringList()> suggestions = [] { return QStringList(); };
    /// Called after each change by the person.
    std::function<void()> edited = [] {};
    /// Called when the person takes what was offered.
    std::function<void()> completed = [] {};
    /// Called when Return is pressed; whether that was an answer to it. Otherwise the sheet takes
    /// the key for its default button.
    std::function<bool()> returned = [] { return false; };

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void takeSuggestion(const QString& payee);
    void handleReturn(QKeyEvent* event);

    QStringListModel* suggestions_;
};

} // namespace oakfen
