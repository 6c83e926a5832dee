// The connection string as the driver manager gets it.
#include "adapters/odbc/ConnectionText.h"

#include "platform/Text.h"
#include "tests/support/RaisedError.h"

#include <gmock/gmock.h>

#include <string>

namespace kvex::test {
namespace {

using odbc::loginTimeoutOf;
using odbc::namesOdbc;
using odbc::nativeTexts;
using odbc::timeoutOf;
using recordset::ConnectionString;
using testing::HasSubstr;
using testing::Not;

std::u16string native(std::u16string_view text) {
    return nativeTexts(ConnectionString(text)).front();
}

std::string utf8(std::u16string_view text) {
    return toUtf8(native(text));
}

TEST(ConnectionText, StringsWithADriverOrDataSourceAreOdbcs) {
    for (const std::u16string_view text :
         {u"Driver={Some Driver};Server=h", u"DSN=rules", u"dsn=rules;UID=u",
          u"Provider=MSDASQL;DSN=rules", u"Provider=msdasql;Data Source=rules"}) {
        EXPECT_TRUE(namesOdbc(ConnectionString(text)));
    }
    for (const std::u16string_view text :
         {u"/data/rules.db", u"Provider=SQLite;Data Source=rules.db", u"Server=h;Database=d"}) {
        EXPECT_FALSE(namesOdbc(ConnectionString(text)));
    }
}

TEST(ConnectionText, TheProviderIsDroppedAndEveryOtherKeyPasses) {
    EXPECT_EQ(native(u"Provider=MSDASQL;Driver={Some Driver};Server=h;Unheard Of=5"),
              u"Driver={Some Driver};Server=h;Unheard Of=5;");
}

TEST(ConnectionText, ValuesThatNeedItAreInBraces) {
    EXPECT_EQ(native(u"DSN=rules;PWD={a;b}}c}"), u"DSN=rules;PWD={a;b}}c};");
    EXPECT_EQ(native(u"DSN=rules;PWD=\" x \""), u"DSN=rules;PWD={ x };");
    EXPECT_EQ(native(u"DSN=rules;Database=plain text"), u"DSN=rules;Database=plain text;");
}

TEST(ConnectionText, TheProvidersNamesOfKeysBecomeOdbcs) {
    EXPECT_EQ(native(u"Provider=MSDASQL;Data Source=rules;User ID=u;Password=p;Initial Catalog=d"),
              u"DSN=rules;UID=u;PWD=p;DATABASE=d;");
}

TEST(ConnectionText, TheAdapterKeepsTheTimeoutWhichIsFifteenSecondsByDefault) {
    EXPECT_EQ(timeoutOf(ConnectionString(u"DSN=rules")), 15);
    EXPECT_EQ(timeoutOf(ConnectionString(u"DSN=rules;connect timeout=4")), 4);
    EXPECT_EQ(timeoutOf(ConnectionString(u"DSN=rules;Connection Timeout=3600")), 3600);
    EXPECT_EQ(native(u"DSN=rules;Connect Timeout=4"), u"DSN=rules;");
}

TEST(ConnectionText, AnInvalidTimeoutIsRefused) {
    for (const std::u16string_view value : {u"", u"0", u"-1", u"soon", u"1.5", u"3601", u"99999"}) {
        const ConnectionString text(u"DSN=rules;Connect Timeout=" + std::u16string(value));
        EXPECT_EQ(errorNumber([&] { static_cast<void>(timeoutOf(text)); }),
                  error_number::badArgument);
    }
}

TEST(ConnectionText, PostgreSqlKeepsLineBreaksAndNeverWaitsForADeadServer) {
    const std::string text = utf8(u"Driver={PostgreSQL Unicode};Server=h;Connect Timeout=9");
    EXPECT_THAT(text, HasSubstr("LFConversion=0;"));
    EXPECT_THAT(text, HasSubstr("BoolsAsChar=0;"));
    EXPECT_THAT(text, HasSubstr("connect_timeout=9 tcp_user_timeout=8500 keepalives_idle=3 "
                                "keepalives_interval=3 keepalives_count=2 "));
    EXPECT_THAT(text, HasSubstr("lock_timeout=6s"));
    EXPECT_THAT(text, HasSubstr("idle_in_transaction_session_timeout=9s"));
    EXPECT_THAT(text, HasSubstr("Protocol=7.4-0;"));
}

TEST(ConnectionText, MariaDbCountsFoundRowsInUtf8AndRefusesWhatDoesNotFit) {
    const std::string text = utf8(u"Driver=/usr/lib/odbc/libmaodbc.so;Server=h");
    EXPECT_THAT(text, HasSubstr("CHARSET=utf8mb4;"));
    EXPECT_THAT(text, HasSubstr("OPTION=2;"));
    EXPECT_THAT(text, HasSubstr("READ_TIMEOUT=15;"));
    EXPECT_THAT(text, HasSubstr("STRICT_ALL_TABLES"));
    EXPECT_THAT(text, HasSubstr("/*M!100300 ,idle_write_transaction_timeout=15*/"));
}

TEST(ConnectionText, MySqlsDriverHasItsOwnNamesForTimeouts) {
    const std::string text = utf8(u"Driver={MySQL ODBC 8.0 Unicode Driver};Server=h");
    EXPECT_THAT(text, HasSubstr("OPTION=2;READTIMEOUT=15;WRITETIMEOUT=15;INITSTMT="));
    EXPECT_THAT(text, Not(HasSubstr("CONN_TIMEOUT")));
}

TEST(ConnectionText, LongTextsOfPostgreSqlAreCharactersWhateverTheStringSays) {
    const std::string text = utf8(u"Driver={PostgreSQL Unicode};UnknownsAsLongVarchar=1");
    EXPECT_THAT(text, HasSubstr(";UnknownsAsLongVarchar=0;"));
    EXPECT_THAT(text, Not(HasSubstr("UnknownsAsLongVarchar=1")));
}

TEST(ConnectionText, EachServerOfAListIsTriedByItself) {
    std::vector<std::u16string> texts;
    const auto expect = [&](std::size_t index, const char *server, const char *port) {
        const std::string native = toUtf8(texts.at(index));
        EXPECT_THAT(native, HasSubstr(std::string("Server=") + server + ";"));
        EXPECT_THAT(native, HasSubstr(std::string("Port=") + port + ";"));
        EXPECT_THAT(native, Not(HasSubstr("db1, db2")));
    };
    for (const std::u16string driver :
         {u"MariaDB Unicode", u"PostgreSQL Unicode", u"MySQL ODBC 8.0 Unicode Driver"}) {
        texts = nativeTexts(ConnectionString(
            u"Driver={" + driver + u"};Server=db1, db2:3307,[::1]:3308,fe80::1,;Port=3306"));
        ASSERT_EQ(texts.size(), 4U);
        expect(0, "db1", "3306");
        expect(1, "db2", "3307");
        expect(2, "::1", "3308");
        expect(3, "fe80::1", "3306");
    }
}

TEST(ConnectionText, OneServerAndAnotherDriversCommaStayAsTheyAre) {
    for (const char16_t *text :
         {u"Driver={MariaDB Unicode};Server=db1", u"Driver={PostgreSQL Unicode};Server=::1",
          u"Driver={Some Driver};Server=db1:5,1433"}) {
        const auto texts = nativeTexts(ConnectionString(text));
        ASSERT_EQ(texts.size(), 1U);
        EXPECT_TRUE(texts.front().starts_with(text));
    }
}

TEST(ConnectionText, SeveralServersShareTheTimeoutOfTheLogin) {
    const auto seconds = [](const char16_t *text) {
        return loginTimeoutOf(ConnectionString(text));
    };
    EXPECT_EQ(seconds(u"Driver={MariaDB Unicode};Server=a,b,c"), 5);
    EXPECT_EQ(seconds(u"Driver={PostgreSQL Unicode};Server=a,b;Connect Timeout=9"), 4);
    EXPECT_EQ(seconds(u"Driver={MariaDB Unicode};Server=a,b,c;Connect Timeout=2"), 1);
    EXPECT_EQ(seconds(u"Driver={Some Driver};Server=a,1433"), 15);
    EXPECT_THAT(utf8(u"Driver={PostgreSQL Unicode};Server=a,b;Connect Timeout=8"),
                HasSubstr("connect_timeout=4 tcp_user_timeout=7500 "));
}

TEST(ConnectionText, WhatTheStringSaysIsNotChanged) {
    const std::string maria =
        utf8(u"Driver={MariaDB Unicode};charset=utf8;OPTIONS=67108866;READ_TIMEOUT=3");
    EXPECT_THAT(maria, Not(HasSubstr("utf8mb4;")));
    EXPECT_THAT(maria, Not(HasSubstr("OPTION=")));
    EXPECT_THAT(maria, Not(HasSubstr("READ_TIMEOUT=15")));
    const std::string postgres =
        utf8(u"Driver={PostgreSQL Unicode};LFConversion=1;pqopt={sslmode=require}");
    EXPECT_THAT(postgres, Not(HasSubstr("LFConversion=0")));
    EXPECT_THAT(postgres, HasSubstr(" sslmode=require};"));
    EXPECT_THAT(postgres, Not(HasSubstr("{sslmode=require}")));
}

} // namespace
} // namespace kvex::test
