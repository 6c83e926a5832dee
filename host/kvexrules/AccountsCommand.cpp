#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/TextColumns.h"
#include "host/rules/RuleRows.h"

#include <array>
#include <vector>

namespace kvex::host {
namespace {

int accounts(const Request &request) {
    const Settings settings = settingsFor(request);
    TextColumns lines({Align::right, Align::left, Align::left});
    try {
        for (const AccountRow &account : readAccounts(*openToRead(settings))) {
            lines.add(
                {account.id, account.bindMode.empty() ? u"-" : account.bindMode, account.name});
        }
    } catch (const Error &error) {
        failFor(settings, error);
    }
    print(lines.text());
    return exit_status::done;
}

constexpr std::array options{databaseOption};

} // namespace

constexpr Command accountsCommand{
    .name = "accounts",
    .words = {},
    .options = options,
    .summary = "list the accounts that receive and send messages",
    .description = R"(Prints one line for each account, in the order of the ids. The columns are the
id, the bind mode and the name. A RECEIVER only receives messages, a TRANSMITTER only
sends them, and a TRANSCEIVER does both; "-" means that none is stored. Accounts that
are marked as deleted are left out.

Blanks separate the columns; the name is the rest of the line. Characters that could
break the line appear as \n, \t, \\ or \u{HEX}.
)",
    .example = R"($ kvexrules accounts
1  TRANSCEIVER  Main line
2  TRANSMITTER  Bulk sending
3  RECEIVER     Short code 56070
4  TRANSCEIVER  दिल्ली कार्यालय
5  transceiver  Old modem 📟
)",
    .run = accounts,
};

} // namespace kvex::host
