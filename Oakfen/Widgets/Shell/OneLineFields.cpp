#include "Oakfen/Widgets/Shell/OneLineFields.h"

#include <QApplication>
#include <QLineEdit>
#include <QValidator>

namespace oakfen {

namespace {

/// Accepts every text, but not its line breaks.
class OneLine final : public QValidator {
public:
    explicit OneLine(QLineEdit* field) : QValidator(field), field_(*field) {}

    State validate(QString& text, int& cursor) const override {
        if (field_.isModified()) {
            const QString beforeCursor = onOneLine(text.left(cursor));
            text = beforeCursor + onOneLine(text.mid(cursor));
            cursor = static_cast<int>(beforeCursor.size());
        }
        return Acceptable;
    }

private:
    [[nodiscard]] QString onOneLine(QString text) const {
        // A blank in a password is one that nobody sees and no password has meant.
        const QString instead =
            field_.echoMode() == QLineEdit::Normal ? QStringLiteral(" ") : QString();
        text.replace(QLatin1String("\r\n"), instead);
        for (const char16_t breaking :
             {u'\n', u'\r', u'\v', u'\f', u'\x85', u'\u2028', u'\u2029'}) {
            text.replace(QChar(breaking), instead);
        }
        return text;
    }

    QLineEdit& field_;
};

} // namespace

OneLineFields::OneLineFields(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

bool OneLineFields::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Polish) {
        auto* field = qobject_cast<QLineEdit*>(watched);
        if (field != nullptr && field->validator() == nullptr) {
            field->setValidator(new OneLine(field));
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace oakfen
