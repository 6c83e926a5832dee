// Dates follow the user's locale, which the environment names, and not the locale of the process.
#include "rules/DescriptionLists.h"
#include "tests/support/ComponentTest.h"

#include <clocale>
#include <cstdlib>

namespace kvex::test {
namespace {

/// Each row runs in a process of its own, as a process reads the user's locale once.
struct UsersLocale {
    const char *name;
    /// The environment; "" means an empty value.
    const char *lcAll, *lcTime, *lang;
    /// The locale that the process sets for itself.
    const char *process;
    char separator;
};

class DateSeparator : public testing::TestWithParam<UsersLocale> {};

/// Ends the process with the separator of day and month in the description of a range.
[[noreturn]] void describeRange(const UsersLocale &user) {
    setenv("LC_ALL", user.lcAll, 1);
    setenv("LC_TIME", user.lcTime, 1);
    setenv("LANG", user.lang, 1);
    std::setlocale(LC_ALL, user.process);
    ruleState().strDateTime = u"20240301 09:00:00,20240331 18:30:00";
    const std::u16string shown = BuildDateTimeList();
    const char16_t separator = shown.size() > 2 ? shown[2] : u'?';
    const std::u16string date = std::u16string(u"01") + separator + u"03" + separator + u"2024";
    const std::u16string end = std::u16string(u"31") + separator + u"03" + separator + u"2024";
    const bool whole = shown == date + u" 09:00:00 Hrs. to " + end + u" 18:30:00 Hrs.";
    const std::string process = std::setlocale(LC_ALL, nullptr);
    std::_Exit(whole && process == user.process ? separator : 0);
}

TEST_P(DateSeparator, IsTheUsersWhateverTheProcessHas) {
    EXPECT_EXIT(describeRange(GetParam()), testing::ExitedWithCode(GetParam().separator), "");
}

INSTANTIATE_TEST_SUITE_P(
    OfLocales, DateSeparator,
    testing::Values(UsersLocale{"None", "", "", "", "C", '/'},
                    UsersLocale{"C", "C", "de_DE.UTF-8", "de_DE.UTF-8", "C", '/'},
                    UsersLocale{"CInAProcessWithAnother", "C", "", "", "de_DE.UTF-8", '/'},
                    UsersLocale{"Dots", "de_DE.UTF-8", "", "", "C", '.'},
                    UsersLocale{"DotsBehindFlags", "cs_CZ.UTF-8", "", "", "C", '.'},
                    UsersLocale{"Hyphens", "sv_SE.UTF-8", "", "", "de_DE.UTF-8", '-'},
                    UsersLocale{"Slashes", "en_US.UTF-8", "", "", "C", '/'},
                    UsersLocale{"WithoutAny", "ja_JP.UTF-8", "", "", "C", '/'},
                    UsersLocale{"OfTimesAlone", "", "de_DE.UTF-8", "C", "C", '.'},
                    UsersLocale{"OfTheLanguage", "", "", "de_DE.UTF-8", "C", '.'},
                    UsersLocale{"Unknown", "xx_YY.UTF-8", "", "", "C", '/'}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace
} // namespace kvex::test

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    // A process of its own for each.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    return RUN_ALL_TESTS();
}
