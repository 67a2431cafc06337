#include "Oakfen/Widgets/Components/Mnemonics.h"

#include <QMap>
#include <QSet>
#include <QVariant>
#include <QWidget>
#include <vector>

namespace oakfen {

namespace {

constexpr const char* letterlessTrait = "hasNoLetter";

constexpr QChar mark = u'&';

/// Whether each keyboard has it, and a text can be chosen by it.
bool canServe(QChar letter) {
    return letter.isLetterOrNumber() && letter.unicode() < 0x80;
}

bool beginsWord(const QString& text, qsizetype place) {
    return place == 0 || !text[place - 1].isLetterOrNumber();
}

/// The places of different letters in a text, beginnings of words first.
QList<qsizetype> candidates(const QString& text) {
    QList<qsizetype> beginnings;
    QList<qsizetype> rest;
    for (qsizetype place = 0; place < text.size(); ++place) {
        if (canServe(text[place])) {
            (beginsWord(text, place) ? beginnings : rest).append(place);
        }
    }
    QList<qsizetype> different;
    QSet<QChar> seen;
    for (const qsizetype place : beginnings + rest) {
        const QChar letter = text[place].toLower();
        if (!seen.contains(letter)) {
            seen.insert(letter);
            different.append(place);
        }
    }
    return different;
}

/// Gives letters to texts one after the other, first to those that can have a beginning of a word.
/// Whoever finds all of its own taken has others move on, if they can.
class LetterAssignment {
public:
    LetterAssignment(const QStringList& texts, const QString& taken)
        : texts_(texts), taken_(taken.toLower()), places_(texts.size(), -1) {
        for (const QString& text : texts) {
            candidates_.append(candidates(text));
        }
    }

    [[nodiscard]] QList<qsizetype> make() {
        for (qsizetype text = 0; text < texts_.size(); ++text) {
            takeFree(text, true);
        }
        for (qsizetype text = 0; text < texts_.size(); ++text) {
            QSet<QChar> tried;
            if (places_[text] < 0 && !takeFree(text, false)) {
                takeAway(text, tried);
            }
        }
        return places_;
    }

private:
    [[nodiscard]] QChar letter(qsizetype text, qsizetype place) const {
        return texts_[text][place].toLower();
    }

    bool takeFree(qsizetype text, bool isBeginning) {
        for (const qsizetype place : candidates_[text]) {
            if (isBeginning && !beginsWord(texts_[text], place)) {
                return false;
            }
            const QChar wanted = letter(text, place);
            if (!owners_.contains(wanted) && !taken_.contains(wanted)) {
                take(text, place);
                return true;
            }
        }
        return false;
    }

    bool takeAway(qsizetype text, QSet<QChar>& tried) {
        for (const qsizetype place : candidates_[text]) {
            const QChar wanted = letter(text, place);
            if (taken_.contains(wanted) || tried.contains(wanted)) {
                continue;
            }
            tried.insert(wanted);
            const qsizetype owner = owners_.value(wanted);
            if (takeFree(owner, false) || takeAway(owner, tried)) {
                take(text, place);
                return true;
            }
        }
        return false;
    }

    void take(qsizetype text, qsizetype place) {
        owners_[letter(text, place)] = text;
        places_[text] = place;
    }

    QStringList texts_;
    QString taken_;
    QList<QList<qsizetype>> candidates_;
    QList<qsizetype> places_;
    QMap<QChar, qsizetype> owners_;
};

} // namespace

QList<qsizetype> mnemonicPlaces(const QStringList& texts, const QString& taken) {
    return LetterAssignment(texts, taken).make();
}

QString withMnemonic(const QString& text, qsizetype place) {
    QString marked;
    for (qsizetype each = 0; each < text.size(); ++each) {
        if (each == place || text[each] == mark) {
            marked.append(mark);
        }
        marked.append(text[each]);
    }
    return marked;
}

QString withoutMnemonic(const QString& marked) {
    QString text;
    for (qsizetype each = 0; each < marked.size(); ++each) {
        if (marked[each] == mark && each + 1 < marked.size()) {
            ++each;
        }
        text.append(marked[each]);
    }
    return text;
}

QChar mnemonicOf(const QString& marked) {
    for (qsizetype each = 0; each + 1 < marked.size(); ++each) {
        if (marked[each] == mark) {
            ++each;
            if (marked[each] != mark) {
                return marked[each].toLower();
            }
        }
    }
    return {};
}

void leaveWithoutLetter(QWidget& button) {
    button.setProperty(letterlessTrait, true);
}

bool mayHaveLetter(const QWidget& widget) {
    return !widget.property(letterlessTrait).toBool();
}

} // namespace oakfen
