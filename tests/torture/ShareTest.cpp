#include "tests/torture/Share.h"

#include <gtest/gtest.h>

#include <vector>

namespace kvex::torture {
namespace {

Share shareFor(std::vector<const char *> arguments) {
    arguments.insert(arguments.begin(), "/build/bin/monkey_torture");
    return Share(arguments, 3);
}

std::vector<std::uint64_t> seedsOf(Share share) {
    std::vector<std::uint64_t> seeds;
    while (share.next()) {
        seeds.push_back(share.seed());
    }
    return seeds;
}

TEST(TortureShare, IsShortAndFixedWithoutArguments) {
    EXPECT_EQ(seedsOf(shareFor({})), (std::vector<std::uint64_t>{1, 2, 3}));
}

TEST(TortureShare, BeginsWithTheSeed) {
    EXPECT_EQ(seedsOf(shareFor({"--seed", "18446744073709551613"})),
              (std::vector<std::uint64_t>{18446744073709551613U, 18446744073709551614U,
                                          18446744073709551615U}));
}

TEST(TortureShare, HasAtLeastOneRun) {
    EXPECT_EQ(seedsOf(shareFor({"--minutes", "0", "--seed", "7"})),
              (std::vector<std::uint64_t>{7}));
}

TEST(TortureShare, GoesOnUntilItsMinutesAreOver) {
    EXPECT_GT(seedsOf(shareFor({"--minutes", "0.001"})).size(), 3U);
}

TEST(TortureShare, SaysHowToRepeatARun) {
    Share share = shareFor({"--seed", "41"});
    share.next();
    share.next();
    EXPECT_EQ(share.repeatCommand(), "monkey_torture --seed 42");
    EXPECT_EQ(share.runs(), 2U);
}

TEST(TortureShareDeathTest, RefusesOtherArguments) {
    for (const auto &arguments : std::vector<std::vector<const char *>>{{"--minutes"},
                                                                        {"--minutes", "-1"},
                                                                        {"--seed", "x"},
                                                                        {"--seed", "1x"},
                                                                        {"5"},
                                                                        {"--help"}}) {
        EXPECT_EXIT(shareFor(arguments), testing::ExitedWithCode(2),
                    "usage: monkey_torture \\[--minutes M\\] \\[--seed S\\]");
    }
}

} // namespace
} // namespace kvex::torture
