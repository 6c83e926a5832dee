#include "host/suite/LogLine.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace kvex::host {
namespace {

class LogLine : public testing::Test {
protected:
    void useZone(const char *zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
    void TearDown() override {
        unsetenv("TZ");
        tzset();
    }
};

TEST_F(LogLine, HoldsTimeTextNumberSourceAndDescription) {
    useZone("IST-5:30");
    const Error error(13, u"Type mismatch", u"KVEXMessageRules");
    EXPECT_EQ(logLine(1709263800, u"Error occured. Sub: A, Module: B", &error),
              "2024-03-01T09:00:00+05:30\tError occured. Sub: A, Module: B\t13\tKVEXMessageRules\t"
              "Type mismatch\n");
}

TEST_F(LogLine, TellsAWesternOffset) {
    useZone("XYZ3:30");
    EXPECT_EQ(logLine(0, u"a", nullptr), "1969-12-31T20:30:00-03:30\ta\n");
}

TEST_F(LogLine, OfAMessageHoldsNoError) {
    useZone("UTC0");
    EXPECT_EQ(logLine(0, u"Could not be opened", nullptr),
              "1970-01-01T00:00:00+00:00\tCould not be opened\n");
}

TEST_F(LogLine, IsOneLineWhateverTheTextsHold) {
    useZone("UTC0");
    const Error error(-1, u"a\r\nb\tc", u"d\ne");
    EXPECT_EQ(logLine(0, u"f\n", &error),
              "1970-01-01T00:00:00+00:00\tf\\n\t-1\td\\ne\ta\\r\\nb\\tc\n");
}

TEST_F(LogLine, HoldsNoPassword) {
    useZone("UTC0");
    const Error error(-1, u"cannot open DSN=a;PWD=s3cret", u"PWD=s3cret");
    EXPECT_EQ(logLine(0, u"PWD=s3cret", &error),
              "1970-01-01T00:00:00+00:00\tPWD=***\t-1\tPWD=***\tcannot open DSN=a;PWD=***\n");
}

TEST_F(LogLine, IsUtf8) {
    useZone("UTC0");
    EXPECT_EQ(logLine(0, u"नियम 🌙", nullptr), "1970-01-01T00:00:00+00:00\tनियम 🌙\n");
}

} // namespace
} // namespace kvex::host
