#include "OakfenCore/Support/Values/FailureText.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {
namespace {

TEST(FailureText, IsTheTextOfAnErrorOfOurs) {
    EXPECT_EQ(failureText(LocalizedError("“a.csv” couldn’t be saved: the disk is full")),
              "“a.csv” couldn’t be saved: the disk is full");
}

TEST(FailureText, PutsTheStandardLibrarysErrorsInPlainWords) {
    EXPECT_EQ(failureText(std::bad_alloc()), "There isn’t enough memory.");
    EXPECT_EQ(failureText(std::length_error("basic_string::append")),
              "Something unexpected went wrong.");
}

} // namespace
} // namespace oakfen
