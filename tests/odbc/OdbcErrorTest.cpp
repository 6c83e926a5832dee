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
    HelpContext context;
};

TEST(OdbcError, EachReportHasItsNumberAndItsContext) {
    for (const Report &report : {
             Report{{u"08001", 0, u"x"}, refusal::noConnection, HelpContext::cannotConnect},
             Report{{u"08S01", 2013, u"x"}, refusal::noConnection, HelpContext::connectionLost},
             Report{{u"IM002", 0, u"x"}, refusal::noConnection, HelpContext::noDataSource},
             Report{{u"HY000", 2006, u"x"}, refusal::noConnection, HelpContext::connectionLost},
             Report{{u"HY000", 5013, u"x"}, refusal::noConnection, HelpContext::connectionLost},
             Report{{u"HY000", 5014, u"x"}, refusal::noConnection, HelpContext::connectionLost},
             Report{{u"HY000", 0, u"SSL SYSCALL error: EOF detected"},
                    refusal::noConnection,
                    HelpContext::connectionLost},
             Report{{u"42000", 1049, u"x"}, refusal::noConnection, HelpContext::cannotConnect},
             Report{{u"28000", 1045, u"x"}, refusal::wrongUser, HelpContext::wrongUser},
             Report{{u"42000", 1142, u"x"}, refusal::forbidden, HelpContext::forbidden},
             Report{{u"42501", 1, u"x"}, refusal::forbidden, HelpContext::forbidden},
             Report{{u"25006", 1, u"x"}, refusal::forbidden, HelpContext::forbidden},
             Report{{u"HY000", 8, u"x"}, refusal::forbidden, HelpContext::forbidden},
             Report{{u"42S02", 1146, u"x"}, refusal::noTable, HelpContext::noTable},
             Report{{u"HY000", 1, u"no such table: T (1)"}, refusal::noTable, HelpContext::noTable},
             Report{{u"42S22", 1, u"x"}, refusal::badStatement, HelpContext::badStatement},
             Report{{u"23505", 1, u"x"}, refusal::constraint, HelpContext::constraint},
             Report{{u"HY000", 19, u"x"}, refusal::constraint, HelpContext::constraint},
             Report{{u"45000", 1644, u"x"}, refusal::constraint, HelpContext::constraint},
             Report{{u"P0001", 1, u"x"}, refusal::constraint, HelpContext::constraint},
             Report{{u"22001", 1406, u"x"}, refusal::tooLong, HelpContext::tooLong},
             Report{{u"22021", 1, u"x"}, refusal::badValue, HelpContext::badValue},
             Report{{u"HY000", 5, u"x"}, refusal::timeout, HelpContext::locked},
             Report{{u"HY000", 1205, u"x"}, refusal::timeout, HelpContext::lockedOrCutOff},
             Report{{u"40001", 1213, u"x"}, refusal::timeout, HelpContext::locked},
             Report{{u"55P03", 1, u"x"}, refusal::timeout, HelpContext::locked},
             Report{{u"HYT00", 0, u"x"}, refusal::timeout, HelpContext::noAnswer},
             Report{{u"HY000", 0, u"x"}, refusal::failed, HelpContext::failed},
             Report{{u"IM003", 0, u"x"}, refusal::noConnection, HelpContext::noDriver},
             Report{{u"HY000", 26, u"x"}, refusal::noConnection, HelpContext::notADatabase},
             Report{{u"HY000", 10, u"x"}, refusal::failed, HelpContext::inputOutput},
             Report{{u"53100", 1, u"x"}, refusal::failed, HelpContext::diskFull},
             Report{{u"XX001", 1, u"x"}, refusal::failed, HelpContext::damaged},
             Report{{u"HY001", 0, u"x"}, error_number::outOfMemory, HelpContext::none},
         }) {
        const Error error = errorOf(report.diagnostic);
        const std::string which =
            std::string(report.diagnostic.state.begin(), report.diagnostic.state.end()) + ' ' +
            std::to_string(report.diagnostic.native);
        EXPECT_EQ(error.number(), report.number) << which;
        EXPECT_EQ(error.helpContext(), report.context) << which;
    }
}

TEST(OdbcError, ADescriptionHoldsTheFirstSentenceWithoutNamesInBrackets) {
    const Error error =
        errorOf({u"23505", 1, u"[unixODBC][Some Driver] ERROR: the key is there;\nError in x"});
    EXPECT_EQ(error.description(), u"The database refuses these values (the key is there).");
    EXPECT_EQ(error.source(), u"ODBC");
}

} // namespace
} // namespace kvex::test
