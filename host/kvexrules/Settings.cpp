#include "host/kvexrules/Settings.h"

#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/DatabaseUrl.h"
#include "host/kvexrules/Failure.h"
#include "host/suite/ErrorLog.h"
#include "host/suite/UserFolders.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <utility>

namespace kvex::host {
namespace {

std::string_view stripped(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

void readLine(std::string_view line, const std::string &place, Configuration &configuration) {
    const std::array keys{
        std::pair{std::string_view("database"), &configuration.database},
        std::pair{std::string_view("user"), &configuration.user},
        std::pair{std::string_view("log"), &configuration.log},
    };
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos) {
        // The message does not repeat the line, which may be part of a connection string.
        throw Failure(place + "this is not a setting. Write: key = value");
    }
    const std::string key(stripped(line.substr(0, sign)));
    const std::string value(stripped(line.substr(sign + 1)));
    for (const auto &[name, target] : keys) {
        if (key != name) {
            continue;
        }
        if (value.empty()) {
            throw Failure(place + key + " has no value. Give it one or remove the line.");
        }
        if (target->has_value()) {
            throw Failure(place + key + " is set a second time. Remove one of the two lines.");
        }
        *target = value;
        return;
    }
    throw Failure(place + "unknown setting \"" + key +
                  "\". The settings are database, user and log.");
}

Configuration readConfiguration(const std::filesystem::path &file) {
    std::error_code failure;
    if (file.empty() || !std::filesystem::exists(file, failure)) {
        if (failure) {
            throw Failure("The configuration file " + file.string() + " cannot be reached (" +
                          failure.message() + "). Make it readable or remove it.");
        }
        return {};
    }
    std::ifstream stream(file, std::ios::binary);
    if (!stream || !std::filesystem::is_regular_file(file)) {
        throw Failure("The configuration file " + file.string() +
                      " cannot be read. Make it a readable file or remove it.");
    }
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    return parseConfiguration(text, file);
}

void chooseDatabase(const Request &request, const Configuration &configuration,
                    const std::filesystem::path &file, Settings &settings) {
    const char *environment = ::secure_getenv("KVEX_DATABASE");
    if (request.has(databaseOption)) {
        settings.database = request.value(databaseOption);
        settings.databaseOrigin = "The database was named by --database.";
    } else if (environment != nullptr && *environment != '\0') {
        settings.database = environment;
        settings.databaseOrigin = "The database was named by $KVEX_DATABASE.";
    } else if (configuration.database) {
        settings.database = *configuration.database;
        settings.databaseOrigin = "The database was named in " + file.string() + ".";
    } else {
        const std::filesystem::path folder = dataFolder();
        if (folder.empty()) {
            throw Failure("There is no home directory for a database of your own. Name one with "
                          "--database.");
        }
        settings.database = (folder / "rules.db").string();
        settings.databaseOrigin = "The database is your own, because no other was named.";
        settings.isOwnDatabase = true;
    }
}

} // namespace

Configuration parseConfiguration(std::string_view text, const std::filesystem::path &file) {
    Configuration configuration;
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        const std::string_view line = stripped(text.substr(0, end));
        if (!line.empty() && !line.starts_with('#')) {
            readLine(line, file.string() + ":" + std::to_string(number) + ": ", configuration);
        }
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return configuration;
}

Settings settingsFor(const Request &request) {
    const std::filesystem::path folder = configurationFolder();
    const std::filesystem::path file = folder.empty() ? folder : folder / "kvexrules.conf";
    const Configuration configuration = readConfiguration(file);

    Settings settings;
    chooseDatabase(request, configuration, file, settings);
    if (const auto advice = adviceForUrl(settings.database)) {
        throw Failure(settings.databaseOrigin + " " + *advice);
    }
    settings.user =
        request.has(userOption) ? request.value(userOption) : configuration.user.value_or("1");
    if (!wholeNumber<std::int32_t>(settings.user)) {
        throw Failure("\"" + settings.user +
                      "\" is not the id of a user. An id is a number, as in: --user 1");
    }
    const std::string log =
        request.has(logOption) ? request.value(logOption) : configuration.log.value_or("");
    if (!log.empty()) {
        settings.log = std::filesystem::absolute(log);
    }
    return settings;
}

void requireWritableLog(const Settings &settings) {
    const int failure = settings.log.empty() ? 0 : appendLine(settings.log, {});
    if (failure != 0) {
        throw Failure("The log " + settings.log.string() + " cannot be written (" +
                      std::strerror(failure) + "). Choose another with --log.");
    }
}

} // namespace kvex::host
