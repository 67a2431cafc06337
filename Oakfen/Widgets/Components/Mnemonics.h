#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QWidget;

namespace oakfen {

/// The letter of each text by which it is chosen from the keyboard, as its place in the text. No
/// letter serves twice, nor one of those `taken`; -1 only where all letters of a text serve others.
/// A beginning of a word where that is free, and of two texts the earlier one has the choice.
[[nodiscard]] QList<qsizetype> mnemonicPlaces(const QStringList& texts, const QString& taken = {});

/// The text as the toolkit takes it, with the letter at that place marked, or none, and its own
/// ampersands to the letter.
[[nodiscard]] QString withMnemonic(const QString& text, qsizetype place);
/// The text as it is read.
[[nodiscard]] QString withoutMnemonic(const QString& marked);
/// The marked letter, in lower case; null for none.
[[nodiscard]] QChar mnemonicOf(const QString& marked);

/// Gives the button no letter: there is one like it in each row of a list, and letters are few.
void leaveWithoutLetter(QWidget& button);
/// Whether a letter may lead to the widget.
[[nodiscard]] bool mayHaveLetter(const QWidget& widget);

} // namespace oakfen
