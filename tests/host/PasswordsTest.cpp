#include "host/suite/Passwords.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

TEST(Passwords, LeaveAConnectionString) {
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

TEST(Passwords, ThatAreNotClosedLeaveWithTheRest) {
    EXPECT_EQ(withoutPasswords(u"Pwd={a;DSN=sms"), u"Pwd=***");
}

TEST(Passwords, LeaveASentenceAroundThem) {
    EXPECT_EQ(withoutPasswords(u"cannot open DSN=a;PWD=b; try again"),
              u"cannot open DSN=a;PWD=***; try again");
}

TEST(Passwords, AreNotSeenInOtherNames) {
    for (const std::u16string text :
         {u"", u"pwd", u"password is wrong", u"MyPwd=1;x", u"pwdx=1", u"old_password=1"}) {
        EXPECT_EQ(withoutPasswords(text), text);
    }
}

TEST(Passwords, BelongToAWholeName) {
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

TEST(Passwords, ThatAreEmptyStayUnknown) {
    EXPECT_EQ(withoutPasswords(u"PWD=;DSN=sms"), u"PWD=***;DSN=sms");
    EXPECT_EQ(withoutPasswords(u"PWD="), u"PWD=***");
}

TEST(Passwords, LeaveAUrl) {
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

} // namespace
} // namespace kvex::host
