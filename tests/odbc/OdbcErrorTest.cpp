// The system's errors for the reports of drivers.
#include "adapters/odbc/OdbcError.h"

#include <gtest/gtest.h>

#include <string>

namespace kvex::test {
namespace {

using odbc::Diagnostic;
using odbc::errorOf;
namespace refusal = odbc::refusal;

struct Report {
    Diagnostic diagnostic;
    std::int32_t number;
};

TEST(OdbcError, EveryMeaningHasItsNumber) {
    for (const Report &report : {
             Report{{u"08001", 0, u"x"}, refusal::noConnection},
             Report{{u"08S01", 2013, u"x"}, refusal::noConnection},
             Report{{u"IM002", 0, u"x"}, refusal::noConnection},
             Report{{u"HY000", 2006, u"x"}, refusal::noConnection},
             Report{{u"HY000", 5013, u"x"}, refusal::noConnection},
             Report{{u"HY000", 5014, u"x"}, refusal::noConnection},
             Report{{u"HY000", 0, u"SSL SYSCALL error: EOF detected"}, refusal::noConnection},
             Report{{u"42000", 1049, u"x"}, refusal::noConnection},
             Report{{u"28000", 1045, u"x"}, refusal::wrongUser},
             Report{{u"42000", 1142, u"x"}, refusal::forbidden},
             Report{{u"42501", 1, u"x"}, refusal::forbidden},
             Report{{u"25006", 1, u"x"}, refusal::forbidden},
             Report{{u"HY000", 8, u"x"}, refusal::forbidden},
             Report{{u"42S02", 1146, u"x"}, refusal::noTable},
             Report{{u"HY000", 1, u"no such table: T (1)"}, refusal::noTable},
             Report{{u"42S22", 1, u"x"}, refusal::badStatement},
             Report{{u"23505", 1, u"x"}, refusal::constraint},
             Report{{u"HY000", 19, u"x"}, refusal::constraint},
             Report{{u"45000", 1644, u"x"}, refusal::constraint},
             Report{{u"P0001", 1, u"x"}, refusal::constraint},
             Report{{u"22001", 1406, u"x"}, refusal::tooLong},
             Report{{u"22021", 1, u"x"}, refusal::badValue},
             Report{{u"HY000", 5, u"x"}, refusal::timeout},
             Report{{u"HY000", 1205, u"x"}, refusal::timeout},
             Report{{u"40001", 1213, u"x"}, refusal::timeout},
             Report{{u"55P03", 1, u"x"}, refusal::timeout},
             Report{{u"HYT00", 0, u"x"}, refusal::timeout},
             Report{{u"HY000", 0, u"x"}, refusal::failed},
             Report{{u"HY001", 0, u"x"}, error_number::outOfMemory},
         }) {
        EXPECT_EQ(errorOf(report.diagnostic).number(), report.number)
            << std::string(report.diagnostic.state.begin(), report.diagnostic.state.end()) << ' '
            << report.diagnostic.native;
    }
}

TEST(OdbcError, ADescriptionHoldsTheFirstSentenceWithoutNamesInBrackets) {
    const Error error =
        errorOf({u"23505", 1, u"[unixODBC][Some Driver] ERROR: the key is there;\nError in x"});
    EXPECT_EQ(error.description(), u"The database refuses these values (the key is there): change "
                                   u"them and try again.");
    EXPECT_EQ(error.source(), u"ODBC");
}

} // namespace
} // namespace kvex::test
