#include "OakfenCore/Models/DateText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "OakfenCore/Support/Values/LocalizedError.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {
namespace {

using testing::day;

std::string written(Date date) {
    std::string text;
    appendDateText(text, date);
    return text;
}

TEST(DateText, IsInUTCAndWholeSeconds) {
    EXPECT_EQ(written(day(2024, 3, 1, 5)), "2024-03-01T05:00:00Z");
    EXPECT_EQ(written(Date{}), "2001-01-01T00:00:00Z");
    EXPECT_EQ(written(Date{-1}), "2000-12-31T23:59:59Z");
}

TEST(DateText, DropsFractionsTowardsThePast) {
    EXPECT_EQ(written(day(2024, 3, 1).adding(0.75)), "2024-03-01T12:00:00Z");
    EXPECT_EQ(written(Date{-0.25}), "2000-12-31T23:59:59Z");
    EXPECT_EQ(written(day(1965, 3, 1).adding(0.75)), "1965-03-01T12:00:00Z");
}

TEST(DateText, GivesAYearFourDigitsOrMore) {
    EXPECT_EQ(written(day(1, 1, 1, 0)), "0001-01-01T00:00:00Z");
    EXPECT_EQ(written(day(987, 6, 5, 0)), "0987-06-05T00:00:00Z");
    EXPECT_EQ(written(Date::distantFuture()), "4001-01-01T00:00:00Z");
    EXPECT_EQ(written(parseDateText("20245-02-28T12:00:00Z").value()), "20245-02-28T12:00:00Z");
    EXPECT_EQ(written(parseDateText("99999-12-31T23:59:59Z").value()), "99999-12-31T23:59:59Z");
}

TEST(DateText, PutsAMinusBeforeAYearBeforeZero) {
    EXPECT_EQ(written(day(1, 1, 1, 0).adding(-1)), "0000-12-31T23:59:59Z");
    EXPECT_EQ(written(parseDateText("0000-01-01T00:00:00Z").value().adding(-1)),
              "-0001-12-31T23:59:59Z");
}

TEST(DateText, RefusesToWriteWhatCannotBeRead) {
    std::string text;
    EXPECT_THROW(appendDateText(text, Date{std::numeric_limits<double>::infinity()}),
                 LocalizedError);
    EXPECT_THROW(appendDateText(text, Date{-std::numeric_limits<double>::infinity()}),
                 LocalizedError);
    EXPECT_THROW(appendDateText(text, Date{std::numeric_limits<double>::quiet_NaN()}),
                 LocalizedError);
    EXPECT_THROW(appendDateText(text, Date{1e18}), LocalizedError);
}

TEST(DateText, ReadsBackEveryDateThatItWrites) {
    std::mt19937_64 engine(1);
    for (const double range : {1e9, 1e11, 1e13, 9.007e15}) {
        std::uniform_real_distribution<double> seconds(-range, range);
        for (int round = 0; round < 2'000; ++round) {
            const Date date{std::floor(seconds(engine))};
            ASSERT_EQ(parseDateText(written(date)), date) << written(date);
        }
    }
}

TEST(DateText, ReadsOffsetsFromUTC) {
    const Date noon = day(2024, 3, 1, 12);
    EXPECT_EQ(parseDateText("2024-03-01T12:00:00Z"), noon);
    EXPECT_EQ(parseDateText("2024-03-01T12:00:00+00:00"), noon);
    EXPECT_EQ(parseDateText("2024-03-01T17:30:00+05:30"), noon);
    EXPECT_EQ(parseDateText("2024-03-01T07:00:00-0500"), noon);
    EXPECT_EQ(parseDateText("2024-03-02T01:00:00+13"), noon);
}

TEST(DateText, ReadsLeapDaysWhereTheyExist) {
    EXPECT_TRUE(parseDateText("2024-02-29T00:00:00Z"));
    EXPECT_TRUE(parseDateText("2000-02-29T00:00:00Z"));
    EXPECT_FALSE(parseDateText("2023-02-29T00:00:00Z"));
    EXPECT_FALSE(parseDateText("1900-02-29T00:00:00Z"));
}

TEST(DateText, RefusesEverythingElse) {
    for (const std::string_view text : {"",
                                        "2024-03-01",
                                        "2024-03-01T12:00:00",
                                        "2024-03-01T12:00:00.75Z",
                                        "2024-03-01T12:00:00.000Z",
                                        "2024-03-01 12:00:00Z",
                                        "2024-03-01t12:00:00Z",
                                        "2024-03-01T12:00:00z",
                                        "2024-03-01T12:00Z",
                                        "2024-3-1T12:00:00Z",
                                        "20240301T120000Z",
                                        "024-03-01T12:00:00Z",
                                        "+2024-03-01T12:00:00Z",
                                        "2024-00-01T12:00:00Z",
                                        "2024-13-01T12:00:00Z",
                                        "2024-04-31T12:00:00Z",
                                        "2024-03-00T12:00:00Z",
                                        "2024-03-01T24:00:00Z",
                                        "2024-03-01T12:60:00Z",
                                        "2024-03-01T12:00:60Z",
                                        "2024-03-01T12:00:00Zx",
                                        "2024-03-01T12:00:00ZZ",
                                        "2024-03-01T12:00:00+",
                                        "2024-03-01T12:00:00+5",
                                        "2024-03-01T12:00:00+05:",
                                        "2024-03-01T12:00:00+24:00",
                                        "2024-03-01T12:00:00+05:60",
                                        "2024-03-01T12:00:00+05:30x",
                                        "99999999999999999999-01-01T00:00:00Z",
                                        "1709294400",
                                        " 2024-03-01T12:00:00Z"}) {
        EXPECT_EQ(parseDateText(text), std::nullopt) << text;
    }
}

} // namespace
} // namespace oakfen
