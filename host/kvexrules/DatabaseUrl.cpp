#include "host/kvexrules/DatabaseUrl.h"

#include "host/kvexrules/CommandLine.h"

#include <algorithm>
#include <cctype>

namespace kvex::host {
namespace {

constexpr auto npos = std::string_view::npos;

std::string lower(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return result;
}

/// Cuts `text` at `sign`. Returns the text before it, and leaves the text after it.
std::string_view takeUntil(char sign, std::string_view &text) {
    const std::size_t at = text.find(sign);
    const std::string_view part = text.substr(0, at);
    text.remove_prefix(at == npos ? text.size() : at + 1);
    return part;
}

/// Replaces each "%HH" by its byte.
std::string decoded(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned char byte = 0;
        const std::string_view digits = text.substr(i + 1, 2);
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
        if (text[i] == '%' && end == digits.data() + 2) {
            result += static_cast<char>(byte);
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

/// "KEY=VALUE;", or "" without a value. Puts the value in braces if it needs them.
std::string entry(std::string_view key, std::string_view encoded) {
    const std::string value = decoded(encoded);
    if (value.empty()) {
        return {};
    }
    std::string held = value;
    if (value.find_first_of(";{}'\"") != npos || value.front() == ' ' || value.back() == ' ') {
        held = "{";
        for (const char byte : value) {
            held += byte == '}' ? "}}" : std::string(1, byte);
        }
        held += '}';
    }
    return std::string(key) + "=" + held + ";";
}

/// "Server=HOST;Port=PORT;". In a list of hosts, each host keeps its port.
std::string servers(std::string_view hosts) {
    const std::size_t colon = hosts.rfind(':');
    const bool hasPort = colon != npos && hosts.find(',') == npos &&
                         wholeNumber<unsigned>(hosts.substr(colon + 1)).has_value();
    std::string_view host = hosts.substr(0, hasPort ? colon : npos);
    if (host.starts_with('[') && host.ends_with(']')) {
        host = host.substr(1, host.size() - 2);
    }
    return entry("Server", host) + (hasPort ? entry("Port", hosts.substr(colon + 1)) : "");
}

/// The connection string for the text after "://".
std::string connectionString(const std::string &driver, std::string_view rest) {
    // The last "@" counts: a password may hold one that should have been encoded.
    const std::size_t at = rest.rfind('@');
    std::string_view login = rest.substr(0, at == npos ? 0 : at);
    rest.remove_prefix(at == npos ? 0 : at + 1);
    const bool hasPassword = login.find(':') != npos;
    const std::string_view user = takeUntil(':', login);
    rest = takeUntil('?', rest);
    const std::string_view hosts = takeUntil('/', rest);
    std::string text = "Driver={" + driver + "};" + servers(hosts) + entry("Database", rest) +
                       entry("UID", user) + (hasPassword ? "PWD=...;" : "");
    text.pop_back();
    return text;
}

} // namespace

std::optional<std::string> adviceForUrl(std::string_view database) {
    constexpr std::string_view javas = "jdbc:";
    if (lower(database.substr(0, javas.size())) == javas) {
        database.remove_prefix(javas.size());
    }
    const std::size_t end = database.find("://");
    const std::string scheme = lower(database.substr(0, end));
    if (end == npos || scheme.empty() || scheme == "file" ||
        scheme.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789+.-") != npos) {
        return std::nullopt;
    }
    // A scheme may also name a driver, as in "mysql+pymysql".
    const std::string kind = scheme.substr(0, scheme.find('+'));
    const std::string what = "\"" + scheme + "://…\" is a URL, which kvexrules does not take. ";
    if (kind.starts_with("sqlite")) {
        return what + "Name the SQLite file by its path, as in: /srv/kvex/rules.db";
    }
    const std::string driver = kind.starts_with("postgres")           ? "PostgreSQL Unicode"
                               : kind == "mysql" || kind == "mariadb" ? "MariaDB Unicode"
                                                                      : "...";
    return what +
           "Use this connection string: " + connectionString(driver, database.substr(end + 3));
}

} // namespace kvex::host
