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
    for (const std::u16string text : {u"", u"pwd", u"password is wrong", u"pwdx=1", u"passfile=a",
                                      u"pwd2", u"secrets=1", u"={}", u"a='", u"="}) {
        EXPECT_EQ(withoutPasswords(text), text);
    }
}

TEST(Passwords, BelongToEveryNameThatEndsLikeOne) {
    for (const std::u16string name :
         {u"sslpassword", u"old_pwd", u"PASSWD", u"ssl-passphrase", u"oauth_client_secret", u"PWD2",
          u"Trust Store Password", u"\"password", u"éPassword10"}) {
        EXPECT_EQ(withoutPasswords(name + u"=x;y"), name + u"=***;y");
    }
}

TEST(Passwords, ThatGoOnBehindQuotesLeaveWhole) {
    EXPECT_EQ(withoutPasswords(u"Pwd='a'b c;DSN=sms"), u"Pwd=***;DSN=sms");
    EXPECT_EQ(withoutPasswords(u"Pwd=\"a\"b"), u"Pwd=***");
    EXPECT_EQ(withoutPasswords(u"Pwd={a}. Pwd='a' b"), u"Pwd=***. Pwd=*** b");
}

TEST(Passwords, AmongTheServerLibrarysOptionsEndBeforeABlank) {
    EXPECT_EQ(withoutPasswords(u"pqopt={a=b sslpassword=x sslmode=require};DSN=sms"),
              u"pqopt={a=b sslpassword=*** sslmode=require};DSN=sms");
    EXPECT_EQ(withoutPasswords(u"PQOPT = {sslpassword = x;y}}z};DSN=sms"),
              u"PQOPT = {sslpassword = ***};DSN=sms");
    EXPECT_EQ(withoutPasswords(u"pqopt={sslpassword='x \\' y' a=b};c"),
              u"pqopt={sslpassword=*** a=b};c");
    EXPECT_EQ(withoutPasswords(u"pqopt={password='x'y\\ z a=b};c"), u"pqopt={password=*** a=b};c");
    EXPECT_EQ(withoutPasswords(u"pqopt=\"password=a;b\";c"), u"pqopt=\"password=***\";c");
    EXPECT_EQ(withoutPasswords(u"pqopt=sslpassword=x a=b;c"), u"pqopt=sslpassword=***;c");
    EXPECT_EQ(withoutPasswords(u"pqopt={sslpassword=x a"), u"pqopt={sslpassword=*** a");
    EXPECT_EQ(withoutPasswords(u"pqopt={password=x\\"), u"pqopt={password=***");
}

TEST(Passwords, WithinAnotherValueLeaveWithTheRestOfIt) {
    EXPECT_EQ(withoutPasswords(u"InitStmt={SET PASSWORD = 'a;b'; x};UID=app"),
              u"InitStmt={SET PASSWORD = ***};UID=app");
    EXPECT_EQ(withoutPasswords(u"a={Server=b;PWD=c d;e}}f} g"), u"a={Server=b;PWD=***} g");
    EXPECT_EQ(withoutPasswords(u"a={b={PWD=c}} d"), u"a={b={PWD=***");
    EXPECT_EQ(withoutPasswords(u"a={x://b:c@d};e"), u"a={x://b:***@d};e");
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

TEST(Passwords, BesideAUrlLeaveWithAllThatFollowsItsColon) {
    EXPECT_EQ(withoutPasswords(u"x://a:b@c;PWD=d@e;f"), u"x://a:***;f");
    EXPECT_EQ(withoutPasswords(u"x://c:5432/d;PWD={e@f;}}g};h"), u"x://c:***;h");
    EXPECT_EQ(withoutPasswords(u"x://a:b@c;PWD=d@e"), u"x://a:***");
    EXPECT_EQ(withoutPasswords(u"x://a:b PWD='c' d@e;f"), u"x://a:***@e;f");
    EXPECT_EQ(withoutPasswords(u"x://a:b@c;pqopt={sslpassword=d@e;f};g"), u"x://a:***};g");
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
