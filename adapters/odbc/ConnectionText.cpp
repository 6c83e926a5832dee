#include "adapters/odbc/ConnectionText.h"

#include "adapters/odbc/DriverOptions.h"
#include "adapters/odbc/ServerList.h"
#include "adapters/recordset/EqualIgnoringCase.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kvex::odbc {
namespace {

using recordset::equalIgnoringCase;

constexpr int defaultTimeout = 15;
constexpr std::array<std::u16string_view, 2> timeoutKeys{u"Connect Timeout", u"Connection Timeout"};

/// The keys of a provider, and what they are called in ODBC.
constexpr std::array nativeKeys =
    std::to_array<std::pair<std::u16string_view, std::u16string_view>>(
        {{u"User ID", u"UID"},
         {u"Password", u"PWD"},
         {u"Data Source", u"DSN"},
         {u"Initial Catalog", u"DATABASE"}});

bool isOurs(std::u16string_view key) {
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
    // Drivers that know no braces meet them only where nothing else can be meant.
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

/// The options in place of what the string says under their keys.
std::u16string nativeText(const recordset::ConnectionString &text,
                          const std::vector<DriverOption> &options) {
    const auto isOption = [&](std::u16string_view key) {
        return std::ranges::any_of(options, [&](const DriverOption &option) {
            return equalIgnoringCase(option.key, key);
        });
    };
    std::u16string native;
    for (const auto &[key, value] : text.entries()) {
        if (!isOurs(key) && !isOption(key)) {
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
                        u" must be a whole number of seconds from 1 to 3600.");
    }
    return seconds;
}

int loginTimeoutOf(const recordset::ConnectionString &text) {
    const auto servers = static_cast<int>(serversToTry(text).size());
    return std::max(1, timeoutOf(text) / std::max(1, servers));
}

std::vector<std::u16string> nativeTexts(const recordset::ConnectionString &text) {
    const std::vector<DriverOption> options =
        driverOptions(text, {.login = loginTimeoutOf(text), .call = timeoutOf(text)});
    std::vector<ServerAddress> servers = serversToTry(text);
    if (servers.empty()) {
        return {nativeText(text, options)};
    }
    std::vector<std::u16string> texts;
    for (ServerAddress &server : servers) {
        std::vector<DriverOption> own = options;
        own.push_back({u"Server", std::move(server.host)});
        if (!server.port.empty()) {
            own.push_back({u"Port", std::move(server.port)});
        }
        texts.push_back(nativeText(text, own));
    }
    return texts;
}

} // namespace kvex::odbc
