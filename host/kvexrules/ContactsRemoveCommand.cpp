#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/ContactsCommands.h"
#include "host/kvexrules/Failure.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <span>

namespace kvex::host {
namespace {

constexpr const char *whereIdsAre = "The ids are the numbers that kvexrules contacts list shows.";

std::int64_t contactId(const std::string &word) {
    const auto id = wholeNumber<std::int64_t>(word);
    if (!id) {
        throw Failure("\"" + word + "\" is not the id of a contact. " + whereIdsAre);
    }
    return *id;
}

/// "There are no contacts 4, 5 and 9".
std::string sayMissing(std::span<const std::int64_t> ids) {
    std::string text = ids.size() == 1 ? "There is no contact " : "There are no contacts ";
    for (std::size_t index = 0; index < ids.size(); ++index) {
        const bool isLast = index + 1 == ids.size();
        text += (index == 0 ? "" : isLast ? " and " : ", ") + std::to_string(ids[index]);
    }
    return text;
}

int removeContactsAskedFor(const Request &request) {
    std::set<std::int64_t> ids;
    std::ranges::transform(request.words, std::inserter(ids, ids.end()), contactId);
    std::vector<std::int64_t> missing;
    changeContacts(settingsFor(request), [&](auto &connection, std::int32_t user) {
        missing = removeContacts(connection, user, ids);
    });
    if (!missing.empty()) {
        throw Failure(sayMissing(missing) + ", so none was removed. " + whereIdsAre,
                      exit_status::refused);
    }
    report(counted(ids.size(), "removed."));
    return exit_status::done;
}

constexpr std::array words{Word{.name = "ID", .repeats = true}};
constexpr std::array options{databaseOption, userOption};

} // namespace

constexpr Command contactsRemoveCommand{
    .name = "contacts remove",
    .words = words,
    .options = options,
    .summary = "remove contacts from the address book",
    .description = R"(Removes the contacts with these ids, which "kvexrules contacts list" shows. If
one of the ids is not there, none is removed.
)",
    .example = R"($ kvexrules contacts remove 2
1 contact removed.
)",
    .run = removeContactsAskedFor,
};

} // namespace kvex::host
