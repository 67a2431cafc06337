#include "OakfenCore/Support/Text/Locale.h"

#include <gtest/gtest.h>

#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using testing::EnvironmentVariable;
using testing::LocaleForTest;

/// An environment that says nothing of locales but what the test puts there.
class EnvironmentLocales : public ::testing::Test {
private:
    EnvironmentVariable all_{"LC_ALL", nullptr};
    EnvironmentVariable money_{"LC_MONETARY", nullptr};
    EnvironmentVariable dates_{"LC_TIME", nullptr};
    EnvironmentVariable sorting_{"LC_COLLATE", nullptr};
    EnvironmentVariable usual_{"LANG", nullptr};
};

TEST_F(EnvironmentLocales, AreCanadianEnglishWhereNoneIsNamed) {
    EXPECT_EQ(environmentLocales(), (UserLocales{"en_CA", "en_CA", "en_CA"}));
}

TEST_F(EnvironmentLocales, AreTheUsualOneWhereNoOtherIsNamed) {
    const EnvironmentVariable usual("LANG", "fr_CA.UTF-8");
    EXPECT_EQ(environmentLocales(), (UserLocales{"fr_CA", "fr_CA", "fr_CA"}));
}

TEST_F(EnvironmentLocales, HaveMoneyInAnotherWithoutTheDatesAndTheSorting) {
    const EnvironmentVariable usual("LANG", "en_CA.UTF-8");
    const EnvironmentVariable money("LC_MONETARY", "de_DE.UTF-8");
    EXPECT_EQ(environmentLocales(), (UserLocales{"de_DE", "en_CA", "en_CA"}));
}

TEST_F(EnvironmentLocales, HaveDatesInAnotherWithoutTheMoneyAndTheSorting) {
    const EnvironmentVariable usual("LANG", "en_US.UTF-8");
    const EnvironmentVariable dates("LC_TIME", "en_DK.UTF-8");
    EXPECT_EQ(environmentLocales(), (UserLocales{"en_US", "en_DK", "en_US"}));
}

TEST_F(EnvironmentLocales, HaveTheSortingInAnotherWithoutTheMoneyAndTheDates) {
    const EnvironmentVariable usual("LANG", "en_CA.UTF-8");
    const EnvironmentVariable sorting("LC_COLLATE", "sv_SE.UTF-8");
    EXPECT_EQ(environmentLocales(), (UserLocales{"en_CA", "en_CA", "sv_SE"}));
}

TEST_F(EnvironmentLocales, AreAllTheOneThatOverridesThem) {
    const EnvironmentVariable usual("LANG", "en_CA.UTF-8");
    const EnvironmentVariable money("LC_MONETARY", "de_DE.UTF-8");
    const EnvironmentVariable dates("LC_TIME", "tr_TR.UTF-8");
    const EnvironmentVariable all("LC_ALL", "fr_FR.UTF-8");
    EXPECT_EQ(environmentLocales(), (UserLocales{"fr_FR", "fr_FR", "fr_FR"}));
}

TEST_F(EnvironmentLocales, PassOverEmptyVariables) {
    const EnvironmentVariable usual("LANG", "en_CA.UTF-8");
    const EnvironmentVariable dates("LC_TIME", "tr_TR.UTF-8");
    const EnvironmentVariable money("LC_MONETARY", "");
    const EnvironmentVariable all("LC_ALL", "");
    EXPECT_EQ(environmentLocales(), (UserLocales{"en_CA", "tr_TR", "en_CA"}));
}

TEST_F(EnvironmentLocales, AreCanadianEnglishWhereTheNameIsNotUsable) {
    const EnvironmentVariable usual("LANG", "de_DE.UTF-8");
    const EnvironmentVariable sorting("LC_COLLATE", "C");
    EXPECT_EQ(environmentLocales(), (UserLocales{"de_DE", "de_DE", "en_CA"}));
}

TEST(UserLocales, AreNamedWithoutTheirCharacterSet) {
    const LocaleForTest german("de_DE.UTF-8");
    EXPECT_EQ(userLocales(), (UserLocales{"de_DE", "de_DE", "de_DE"}));
    const LocaleForTest mixed({.money = "fr_CA@euro", .dates = "tr_TR.UTF-8", .sorting = "sv_SE"});
    EXPECT_EQ(userLocales(), (UserLocales{"fr_CA", "tr_TR", "sv_SE"}));
}

TEST(UserLocales, AreCanadianEnglishWhereTheNameIsNotUsable) {
    for (const char* name : {"", "C", "C.UTF-8", "POSIX", "xx_YY", "???", "no such locale"}) {
        const LocaleForTest locale(name);
        EXPECT_EQ(userLocales(), (UserLocales{"en_CA", "en_CA", "en_CA"})) << name;
    }
}

TEST(UserLocales, RuleMoneyDatesAndSortingEachByItself) {
    const Date noon = Calendar::utc().date({.year = 2026, .month = 3, .day = 5, .hour = 12});
    const auto money = [] { return currencyText(Decimal::cents(123450), "EUR"); };
    const auto dates = [&] { return numericDateText(noon, Calendar::utc()); };
    const auto isSwedish = [] { return localizedCaseInsensitiveCompare("\u00E5", "z") > 0; };
    {
        const LocaleForTest locale({.money = "de_DE", .dates = "en_CA", .sorting = "en_CA"});
        EXPECT_EQ(money(), "1.234,50\u00A0€");
        EXPECT_EQ(localeCurrencyCode(), "EUR");
        EXPECT_EQ(dates(), "03/05/2026");
        EXPECT_FALSE(isSwedish());
    }
    {
        const LocaleForTest locale({.money = "en_CA", .dates = "de_DE", .sorting = "sv_SE"});
        EXPECT_EQ(money(), "€1,234.50");
        EXPECT_EQ(localeCurrencyCode(), "CAD");
        EXPECT_EQ(dates(), "05.03.2026");
        EXPECT_TRUE(isSwedish());
    }
}

} // namespace
} // namespace oakfen
