#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

/// The tests run in the person's locale of the C library, as the program does: the window toolkit
/// switches to it at start, and with it the decimal point of everything that prints and scans.
int main(int argumentCount, char** arguments) {
    if (std::setlocale(LC_ALL, "") == nullptr) {
        std::fputs("This machine lacks the locale that the environment names.\n", stderr);
        return EXIT_FAILURE;
    }
    ::testing::InitGoogleTest(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
