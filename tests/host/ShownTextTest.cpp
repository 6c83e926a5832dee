#include "host/suite/ShownText.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

TEST(Passwords, AreHiddenInAConnectionString) {
    EXPECT_EQ(withoutPasswords(u"DSN=sms;UID=app;PWD=s3cret"), u"DSN=sms;UID=app;PWD=***");
    EXPECT_EQ(withoutPasswords(u"Password = s3 cret ;DSN=sms"), u"Password = ***;DSN=sms");
}

TEST(Passwords, AreFoundWithoutRegardToCase) {
    EXPECT_EQ(withoutPasswords(u"pwd=x;PassWord=y"), u"pwd=***;PassWord=***");
}

TEST(Passwords, EndWhereTheirBracesOrQuotesDo) {
    EXPECT_EQ(withoutPasswords(u"Pwd={a;b}}c};DSN=sms"), u"Pwd=***;DSN=sms");
    EXPECT_EQ(withoutPasswords(u"Pwd=\"a;\"\"b\";DSN=sms"), u"Pwd=***;DSN=sms");
    EXPECT_EQ(withoutPasswords(u"Pwd='a;b';DSN=sms"), u"Pwd=***;DSN=sms");
}

TEST(Passwords, WithoutAClosingMarkAreHiddenWithTheRest) {
    EXPECT_EQ(withoutPasswords(u"Pwd={a;DSN=sms"), u"Pwd=***");
}

TEST(Passwords, AreHiddenWithoutTheSentenceAroundThem) {
    EXPECT_EQ(withoutPasswords(u"cannot open DSN=a;PWD=b; try again"),
              u"cannot open DSN=a;PWD=***; try again");
}

TEST(Passwords, AreNotSeenInOtherNames) {
    for (const std::u16string text :
         {u"", u"pwd", u"password is wrong", u"MyPwd=1;x", u"pwdx=1", u"old_password=1"}) {
        EXPECT_EQ(withoutPasswords(text), text);
    }
}

TEST(Passwords, AreFoundOnlyBehindAWholeName) {
    for (const char16_t part : std::u16string(u"azAZ09_")) {
        EXPECT_EQ(withoutPasswords(part + std::u16string(u"pwd=x")),
                  part + std::u16string(u"pwd=x"));
    }
    for (const char16_t other : std::u16string(u"`{@[/:^ ;é")) {
        EXPECT_EQ(withoutPasswords(other + std::u16string(u"pwd=x")),
                  other + std::u16string(u"pwd=***"));
    }
}

TEST(Passwords, MayHaveBlanksAroundTheSign) {
    EXPECT_EQ(withoutPasswords(u"PWD \t=\t {a;b} ;x"), u"PWD \t=\t *** ;x");
    EXPECT_EQ(withoutPasswords(u"PWD \n=x"), u"PWD \n=x");
    EXPECT_EQ(withoutPasswords(u"PWD ="), u"PWD =***");
    EXPECT_EQ(withoutPasswords(u"PWD "), u"PWD ");
}

TEST(Passwords, ThatAreEmptyLookLikeOthers) {
    EXPECT_EQ(withoutPasswords(u"PWD=;DSN=sms"), u"PWD=***;DSN=sms");
    EXPECT_EQ(withoutPasswords(u"PWD="), u"PWD=***");
}

TEST(Passwords, AreHiddenInAUrl) {
    EXPECT_EQ(withoutPasswords(u"postgresql://app:s3cret@db:5432/sms"),
              u"postgresql://app:***@db:5432/sms");
    EXPECT_EQ(withoutPasswords(u"x://app:a@b:c/d ?@db"), u"x://app:***@db");
    EXPECT_EQ(withoutPasswords(u"x://a:b@c\ny://d:e@f\r\nz"), u"x://a:***@c\ny://d:***@f\r\nz");
    EXPECT_EQ(withoutPasswords(u"x://:s@c"), u"x://:***@c");
    EXPECT_EQ(withoutPasswords(u"x://h/d?password=s3cret"), u"x://h/d?password=***");
    EXPECT_EQ(withoutPasswords(u"x://a:b@c;PWD=d;e"), u"x://a:***@c;PWD=***;e");
}

TEST(Passwords, AreNotSeenInUrlsWithoutThem) {
    for (const std::u16string text :
         {u"x://", u"x://db:5432/sms", u"x://app@db:5432/sms", u"a@b x://c:d", u"x:/a:b@c",
          u"x://app:@db", u"x://a\n:b@c"}) {
        EXPECT_EQ(withoutPasswords(text), text);
    }
}

TEST(VisibleText, KeepsWhatIsReadable) {
    const std::u16string text = u"Asha, \"प्रिया\" \x2019 🌙";
    EXPECT_EQ(visible(text), text);
    EXPECT_EQ(harmless(text), text);
}

TEST(VisibleText, WritesLineBreaksAndTabsOut) {
    EXPECT_EQ(visible(u"a\r\nb\tc"), u"a\\r\\nb\\tc");
}

TEST(VisibleText, DistinguishesABackslashFromAnEscape) {
    EXPECT_EQ(visible(u"a\\nb"), u"a\\\\nb");
    EXPECT_NE(visible(u"a\\nb"), visible(u"a\nb"));
}

TEST(VisibleText, WritesOutWhatControlsATerminal) {
    EXPECT_EQ(visible(u"\x1b[2J\x9b"), u"\\u{1b}[2J\\u{9b}");
    EXPECT_EQ(visible(std::u16string(1, u'\0')), u"\\u{0}");
}

TEST(VisibleText, WritesOutSeparatorsAndDirectionOverrides) {
    EXPECT_EQ(visible(u"a\x2028"
                      u"b\x202E"
                      u"c\x2066"),
              u"a\\u{2028}b\\u{202e}c\\u{2066}");
}

TEST(VisibleText, ReplacesTheSameCharactersForReading) {
    EXPECT_EQ(harmless(u"a\x1b"
                       u"b\\c\x202E"),
              u"a\xFFFD"
              u"b\\c\xFFFD");
}

TEST(VisibleText, KeepsLinesApartForReading) {
    EXPECT_EQ(harmlessLines(u"a\r\nb\n\n\x1b[2Jc\t\n"), u"a\nb\n\n\xFFFD[2Jc\xFFFD\n");
    EXPECT_EQ(harmlessLines(u"a\r"), u"a\xFFFD");
    EXPECT_EQ(harmlessLines(u""), u"");
}

TEST(VisibleText, HidesTheFirstAndTheLastOfEachRange) {
    for (const char16_t unit : std::u16string(u"\x1f\x7f\x9f\x2028\x2029\x202a\x202e\x2066\x2069"
                                              u"\xfffe\xffff")) {
        EXPECT_EQ(harmless(std::u16string(1, unit)), u"\xFFFD") << static_cast<int>(unit);
        EXPECT_TRUE(visible(std::u16string(1, unit)).starts_with(u"\\u{"));
    }
    for (const char16_t unit : std::u16string(u"\x20\x7e\xa0\x2027\x202f\x2065\x206a\xfffd")) {
        EXPECT_EQ(visible(std::u16string(1, unit)), std::u16string(1, unit))
            << static_cast<int>(unit);
    }
}

} // namespace
} // namespace kvex::host
