#pragma once

#include <string_view>

#include "OakfenCore/Support/Text/Locale.h"

namespace oakfen::testing {

/// The user's locale for one test; whoever expects texts for people to the letter makes one. All
/// other tests hold in every locale.
class LocaleForTest {
public:
    explicit LocaleForTest(std::string_view name) { setUserLocale(name); }
    explicit LocaleForTest(const UserLocales& locales) { setUserLocales(locales); }
    ~LocaleForTest() { setUserLocales(before_); }
    LocaleForTest(const LocaleForTest&) = delete;
    LocaleForTest& operator=(const LocaleForTest&) = delete;

private:
    UserLocales before_ = userLocales();
};

} // namespace oakfen::testing
