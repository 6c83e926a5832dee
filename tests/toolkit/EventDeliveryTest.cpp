#include "adapters/controls/EventDelivery.h"

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace kvex::controls {
namespace {

/// What is written to the diagnostic stream while this lives.
class Diagnostics {
public:
    Diagnostics() : before_(std::cerr.rdbuf(written_.rdbuf())) {}
    ~Diagnostics() { std::cerr.rdbuf(before_); }
    Diagnostics(const Diagnostics &) = delete;
    Diagnostics &operator=(const Diagnostics &) = delete;
    [[nodiscard]] std::string text() const { return written_.str(); }

private:
    std::ostringstream written_;
    std::streambuf *before_;
};

TEST(EventDelivery, HandsItsArgumentsToTheHandler) {
    std::int16_t code = 5;
    const std::function<void(std::int16_t &)> handler = [](std::int16_t &key) { key = 0; };
    deliver(handler, u"frm.txt", {}, code);
    EXPECT_EQ(code, 0);
}

TEST(EventDelivery, IgnoresAHandlerThatIsNotSet) {
    const Diagnostics diagnostics;
    deliver(std::function<void()>(), u"frm.cmd", {});
    EXPECT_EQ(diagnostics.text(), "");
}

TEST(EventDelivery, WritesAnErrorAsOneLineAndNotifiesTheObserver) {
    const Diagnostics diagnostics;
    std::vector<Error> errors;
    const ErrorObserver observer = [&](const Error &error) { errors.push_back(error); };
    deliver(std::function<void()>([] { throw Error(5, u"two\r\nlines \x1b", u"Source"); }),
            u"frmRules.cmdNew", observer);
    deliver(std::function<void()>([] { throw std::runtime_error("other"); }), u"frm.cmd", observer);
    EXPECT_EQ(diagnostics.text(),
              "KVEXMessageRules: unhandled error in frmRules.cmdNew: error 5: two\\r\\nlines "
              "\\u{1b} (Source)\n"
              "KVEXMessageRules: unhandled error in frm.cmd: error 51: other (KVEXMessageRules)\n");
    ASSERT_EQ(errors.size(), 2U);
    EXPECT_EQ(errors[0].number(), 5);
    EXPECT_EQ(errors[1].number(), error_number::internalError);
}

TEST(EventDelivery, AHandlerMayReplaceItself) {
    int runs = 0;
    std::function<void()> handler;
    handler = [&handler, &runs] {
        handler = nullptr;
        ++runs;
    };
    deliver(handler, u"frm.cmd", {});
    deliver(handler, u"frm.cmd", {});
    EXPECT_EQ(runs, 1);
}

} // namespace
} // namespace kvex::controls
