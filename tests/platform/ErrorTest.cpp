#include "platform/Error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace {

using kvex::Error;
namespace error_number = kvex::error_number;

/// What Error::current makes of an exception.
template <class Raised> Error caught(const Raised &raised) {
    try {
        throw raised;
    } catch (...) {
        return Error::current();
    }
}

TEST(Error, HasThePlatformsTextForItsNumber) {
    EXPECT_EQ(Error(error_number::typeMismatch).description(), u"Type mismatch");
    EXPECT_EQ(Error(error_number::invalidUseOfNull).description(), u"Invalid use of Null");
    EXPECT_EQ(Error(424242).description(), u"Application-defined or object-defined error");
    EXPECT_EQ(Error(error_number::typeMismatch).source(), u"KVEXMessageRules");
}

TEST(Error, KeepsTheTextsItIsGiven) {
    const Error error(-2147217900, u"near \"FROM\"", u"Some database");
    EXPECT_EQ(error.number(), -2147217900);
    EXPECT_EQ(error.description(), u"near \"FROM\"");
    EXPECT_EQ(error.source(), u"Some database");
}

TEST(Error, IsOfTheDatabaseWhenItsNumberIsNegative) {
    EXPECT_TRUE(Error(-1).fromDatabase());
    EXPECT_FALSE(Error(0).fromDatabase());
    EXPECT_FALSE(Error(error_number::noCurrentRecord).fromDatabase());
}

TEST(Error, PrintsItsNumberDescriptionAndSource) {
    EXPECT_STREQ(Error(6, u"Zu groß", u"Quelle").what(), "error 6: Zu gro\xC3\x9F (Quelle)");
}

TEST(ErrorCurrent, IsTheErrorItself) {
    const Error error = caught(Error(5, u"description", u"source"));
    EXPECT_EQ(error.number(), 5);
    EXPECT_EQ(error.description(), u"description");
    EXPECT_EQ(error.source(), u"source");
}

TEST(ErrorCurrent, TurnsEveryOtherExceptionIntoAnError) {
    EXPECT_EQ(caught(std::bad_alloc()).number(), error_number::outOfMemory);
    EXPECT_EQ(caught(std::bad_alloc()).description(), u"Out of memory");
    const Error fault = caught(std::logic_error("sch\xC3\xB6n"));
    EXPECT_EQ(fault.number(), error_number::internalError);
    EXPECT_EQ(fault.description(), u"schön");
    EXPECT_EQ(caught(std::runtime_error("")).description(), u"Internal error");
    EXPECT_EQ(caught(1).number(), error_number::internalError);
    EXPECT_EQ(caught(1).description(), u"Internal error");
}

} // namespace
