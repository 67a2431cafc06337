#include "Oakfen/Widgets/Components/Mnemonics.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <QSet>

#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {
namespace {

/// The texts with their letters marked: "&Edit|&Duplicate".
std::string marked(const QStringList& texts, const QString& taken = {}) {
    const QList<qsizetype> places = mnemonicPlaces(texts, taken);
    QStringList result;
    for (qsizetype each = 0; each < texts.size(); ++each) {
        result.append(withMnemonic(texts[each], places[each]));
    }
    return utf8(result.join(QLatin1Char('|')));
}

TEST(Mnemonics, BeginWithWords) {
    EXPECT_EQ(marked({qt("New Transaction"), qt("New Account…"), qt("New Reminder…")}),
              "&New Transaction|New &Account…|New &Reminder…");
}

TEST(Mnemonics, GoIntoAWordWhereItsBeginningIsTaken) {
    EXPECT_EQ(marked({qt("Cut"), qt("Copy"), qt("Paste")}), "&Cut|C&opy|&Paste");
}

TEST(Mnemonics, LeaveABeginningToWhoeverBeginsWithIt) {
    EXPECT_EQ(marked({qt("Enter"), qt("Edit"), qt("Duplicate"), qt("Delete")}),
              "&Enter|Ed&it|&Duplicate|De&lete");
}

TEST(Mnemonics, AreNoneOfThoseTakenAlready) {
    EXPECT_EQ(marked({qt("Filter"), qt("Find")}, qt("FI")), "Fi&lter|Fi&nd");
}

TEST(Mnemonics, MoveOnForWhoeverHasNoOtherLetter) {
    EXPECT_EQ(marked({qt("ab"), qt("ac"), qt("a")}), "a&b|a&c|&a");
}

TEST(Mnemonics, LeaveOutWhatHasNoLetterLeft) {
    EXPECT_EQ(marked({qt("aa"), qt("A"), qt("…"), qt("")}), "&aa|A|…|");
}

TEST(Mnemonics, TakeAnAmpersandToTheLetter) {
    EXPECT_EQ(marked({qt("Bills & Income")}), "&Bills && Income");
    EXPECT_EQ(withoutMnemonic(qt("&Bills && Income")), qt("Bills & Income"));
    EXPECT_EQ(mnemonicOf(qt("A && &B")), QChar(u'b'));
    EXPECT_TRUE(mnemonicOf(qt("A && B")).isNull());
    EXPECT_TRUE(mnemonicOf(qt("A &")).isNull());
}

TEST(Mnemonics, SurviveBeingMarkedAndRead) {
    for (const char* text : {"&", "&&", "a&", "&a", "a&&b", "", "AT&T & Co"}) {
        for (qsizetype place = -1; place < qt(text).size(); ++place) {
            EXPECT_EQ(utf8(withoutMnemonic(withMnemonic(qt(text), place))), text);
        }
    }
}

/// Whether the text could still have a letter that nobody has.
bool hasFreeLetter(const QString& text, const QSet<QChar>& used) {
    return std::any_of(text.begin(), text.end(), [&](QChar letter) {
        return letter.isLetter() && !used.contains(letter.toLower());
    });
}

TEST(Mnemonics, AreDifferentAndLeaveNoneOutThatCouldHaveOne) {
    QRandomGenerator random(20260315);
    for (int round = 0; round < 300; ++round) {
        QStringList texts;
        const int count = random.bounded(1, 12);
        for (int text = 0; text < count; ++text) {
            QString word;
            const int length = random.bounded(1, 5);
            for (int letter = 0; letter < length; ++letter) {
                word.append(QChar(u'a' + static_cast<char16_t>(random.bounded(8))));
            }
            texts.append(word);
        }
        const QList<qsizetype> places = mnemonicPlaces(texts);
        QSet<QChar> used;
        for (qsizetype text = 0; text < texts.size(); ++text) {
            if (places[text] >= 0) {
                const QChar letter = texts[text][places[text]];
                EXPECT_FALSE(used.contains(letter)) << utf8(texts.join(QLatin1Char(' ')));
                used.insert(letter);
            }
        }
        for (qsizetype text = 0; text < texts.size(); ++text) {
            EXPECT_TRUE(places[text] >= 0 || !hasFreeLetter(texts[text], used))
                << utf8(texts.join(QLatin1Char(' ')));
        }
    }
}

} // namespace
} // namespace oakfen
