#include "adapters/odbc/ConnectionText.h"

#include "adapters/odbc/ServerKind.h"
#include "adapters/recordset/EqualIgnoringCase.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <odbcinst.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace kvex::odbc {
namespace {

using recordset::equalIgnoringCase;

constexpr int defaultTimeout = 15;
constexpr std::array<std::u16string_view, 2> timeoutKeys{u"Connect Timeout", u"Connection Timeout"};

/// The keys of a provider, and their names in ODBC.
constexpr std::array nativeKeys =
    std::to_array<std::pair<std::u16string_view, std::u16string_view>>(
        {{u"User ID", u"UID"},
         {u"Password", u"PWD"},
         {u"Data Source", u"DSN"},
         {u"Initial Catalog", u"DATABASE"}});

bool isForProvider(std::u16string_view key) {
    return equalIgnoringCase(key, u"Provider") || std::ranges::any_of(timeoutKeys, [&](auto ours) {
               return equalIgnoringCase(key, ours);
           });
}

std::u16string_view nativeKey(std::u16string_view key) {
    const auto found = std::ranges::find_if(
        nativeKeys, [&](const auto &known) { return equalIgnoringCase(key, known.first); });
    return found == nativeKeys.end() ? key : found->second;
}

std::u16string written(std::u16string_view key, std::u16string_view value) {
    // Some drivers do not understand braces, so only values that need them get them.
    const bool plain = !equalIgnoringCase(key, u"Driver") && trimmed(value) == value &&
                       value.find_first_of(u";{}'\"") == std::u16string_view::npos;
    std::u16string result(value);
    if (!plain) {
        result = u"{";
        for (const char16_t unit : value) {
            result.append(unit == u'}' ? 2 : 1, unit);
        }
        result += u'}';
    }
    return std::u16string(key) + u'=' + result + u';';
}

/// The string's value for the key, else the value of its data source; "" when neither has one.
std::u16string setting(const recordset::ConnectionString &text, std::u16string_view key) {
    if (text.has(key)) {
        return std::u16string(text.value(key));
    }
    const std::string source = toUtf8(text.value(text.has(u"DSN") ? u"DSN" : u"Data Source"));
    std::array<char, 1024> value{};
    if (source.empty() ||
        SQLGetPrivateProfileString(source.c_str(), toUtf8(key).c_str(), "", value.data(),
                                   static_cast<int>(value.size()), "odbc.ini") <= 0) {
        return {};
    }
    return fromUtf8(value.data());
}

const ServerKind &kindOf(const recordset::ConnectionString &text) {
    return ServerKind::ofDriver(setting(text, u"Driver"));
}

struct ServerAddress {
    std::u16string host;
    /// "" for the port that the string gives for all servers.
    std::u16string port;
};

std::vector<std::u16string> listed(const recordset::ConnectionString &text) {
    std::u16string list = setting(text, u"Server");
    // In PostgreSQL's data sources, this key names the server.
    if (list.empty() && !text.has(u"Servername")) {
        list = setting(text, u"Servername");
    }
    std::vector<std::u16string> hosts;
    for (std::size_t at = 0; at <= list.size();) {
        const std::size_t end = std::min(list.find(u',', at), list.size());
        if (const auto host = trimmed(std::u16string_view(list).substr(at, end - at));
            !host.empty()) {
            hosts.emplace_back(host);
        }
        at = end + 1;
    }
    return hosts;
}

ServerAddress addressOf(std::u16string_view host) {
    std::u16string_view port;
    const std::size_t colon = host.rfind(u':');
    const bool inBrackets = host.starts_with(u'[');
    // An IPv6 address without brackets has several colons, and no port.
    if (colon != std::u16string_view::npos &&
        (inBrackets ? host[colon - 1] == u']' : host.find(u':') == colon)) {
        port = host.substr(colon + 1);
        host = host.substr(0, colon);
    }
    if (inBrackets && host.ends_with(u']')) {
        host = host.substr(1, host.size() - 2);
    }
    return {std::u16string(host), std::u16string(port)};
}

/// Empty when the string names one server without a port, and when its driver takes no list.
std::vector<ServerAddress> serversToTry(const recordset::ConnectionString &text) {
    if (!kindOf(text).takesServerList) {
        return {};
    }
    std::vector<ServerAddress> servers;
    std::ranges::transform(listed(text), std::back_inserter(servers), addressOf);
    const bool isPlain = servers.size() == 1 && servers.front().port.empty();
    return isPlain ? std::vector<ServerAddress>() : servers;
}

/// The options to add to the native text, after a comparison with the user's own values.
std::vector<DriverOption> optionsFor(const recordset::ConnectionString &text) {
    std::vector<DriverOption> options =
        kindOf(text).options({.login = loginTimeoutOf(text), .call = timeoutOf(text)});
    std::erase_if(options, [&](const DriverOption &option) {
        return option.usersValue == UsersValue::replacesOurs &&
               (text.has(option.key) || text.has(option.otherKey));
    });
    for (DriverOption &option : options) {
        if (option.usersValue == UsersValue::followsOurs) {
            if (const std::u16string own = setting(text, option.key); !own.empty()) {
                option.value.append(u" ").append(own);
            }
        }
    }
    return options;
}

/// An option replaces the string's value for the same key.
std::u16string nativeText(const recordset::ConnectionString &text,
                          const std::vector<DriverOption> &options) {
    const auto isOption = [&](std::u16string_view key) {
        return std::ranges::any_of(options, [&](const DriverOption &option) {
            return equalIgnoringCase(option.key, key);
        });
    };
    std::u16string native;
    for (const auto &[key, value] : text.entries()) {
        if (!isForProvider(key) && !isOption(key)) {
            native += written(nativeKey(key), value);
        }
    }
    for (const DriverOption &option : options) {
        native += written(option.key, option.value);
    }
    return native;
}

} // namespace

bool namesOdbc(const recordset::ConnectionString &text) {
    return !text.isPath() && (text.has(u"Driver") || text.has(u"DSN") ||
                              equalIgnoringCase(text.value(u"Provider"), u"MSDASQL"));
}

int timeoutOf(const recordset::ConnectionString &text) {
    const auto key = std::ranges::find_if(timeoutKeys, [&](auto known) { return text.has(known); });
    if (key == timeoutKeys.end()) {
        return defaultTimeout;
    }
    const std::u16string_view value = text.value(*key);
    const bool whole =
        !value.empty() && value.size() <= 4 &&
        std::ranges::all_of(value, [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
    const int seconds = whole ? toInt32(value) : 0;
    if (seconds < 1 || seconds > 3600) {
        throw Error(error_number::badArgument,
                    u"The connection string's " + std::u16string(*key) +
                        u" is not a whole number of seconds from 1 to 3600.");
    }
    return seconds;
}

int loginTimeoutOf(const recordset::ConnectionString &text) {
    const auto servers = static_cast<int>(serversToTry(text).size());
    return std::max(1, timeoutOf(text) / std::max(1, servers));
}

std::vector<std::u16string> nativeTexts(const recordset::ConnectionString &text) {
    const std::vector<DriverOption> options = optionsFor(text);
    std::vector<ServerAddress> servers = serversToTry(text);
    if (servers.empty()) {
        return {nativeText(text, options)};
    }
    std::vector<std::u16string> texts;
    for (ServerAddress &server : servers) {
        std::vector<DriverOption> own = options;
        own.push_back({.key = u"Server", .value = std::move(server.host)});
        if (!server.port.empty()) {
            own.push_back({.key = u"Port", .value = std::move(server.port)});
        }
        texts.push_back(nativeText(text, own));
    }
    return texts;
}

} // namespace kvex::odbc
