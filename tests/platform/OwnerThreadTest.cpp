#include "platform/OwnerThread.h"

#include <gtest/gtest.h>

#include <chrono>
#include <pthread.h>
#include <string>
#include <thread>
#include <unistd.h>

namespace kvex {
namespace {

TEST(OwnerThread, HasTheNumberAndNameOfTheSystem) {
    std::thread([] {
        pthread_setname_np(pthread_self(), "editor");
        const std::string number = std::to_string(gettid());
        EXPECT_EQ(OwnerThread().text(),
                  u"the thread " + std::u16string(number.begin(), number.end()) + u" (editor)");
    }).join();
}

TEST(OwnerThread, IsCurrentOnlyThere) {
    const OwnerThread here;
    EXPECT_TRUE(here.isCurrent());
    std::thread([&] { EXPECT_FALSE(here.isCurrent()); }).join();
}

TEST(OwnerThread, SaysWhenItHasEnded) {
    std::u16string number;
    OwnerThread ended;
    std::thread([&] {
        const std::string text = std::to_string(gettid());
        number.assign(text.begin(), text.end());
        ended = OwnerThread();
    }).join();
    // The system may list a thread for a moment after it was joined.
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (ended.text().back() == u')' && std::chrono::steady_clock::now() < limit) {
        std::this_thread::yield();
    }
    EXPECT_EQ(ended.text(), u"the thread " + number + u", which has ended");
}

} // namespace
} // namespace kvex
