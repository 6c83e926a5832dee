#include "host/kvexrules/Failure.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

TEST(Sentence, GetsItsFullStop) {
    EXPECT_EQ(asSentence("Type mismatch"), "Type mismatch.");
    EXPECT_EQ(asSentence("Type mismatch \r\n\t"), "Type mismatch.");
}

TEST(Sentence, KeepsTheMarkThatItHas) {
    for (const char *text : {"Done.", "Done!", "Done?", "Done:", "Done;"}) {
        EXPECT_EQ(asSentence(text), text);
    }
}

TEST(Sentence, OfAnEmptyTextIsEmpty) {
    EXPECT_EQ(asSentence(""), "");
    EXPECT_EQ(asSentence(" \n"), "");
}

TEST(ReasonAndLog, AreSentences) {
    EXPECT_EQ(reasonAndLog("Type mismatch", "/a/KVEX.log"),
              "Type mismatch. The log is /a/KVEX.log.");
    EXPECT_EQ(reasonAndLog("Type mismatch", {}), "Type mismatch.");
}

} // namespace
} // namespace kvex::host
