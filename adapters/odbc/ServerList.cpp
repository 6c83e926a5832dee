#include "adapters/odbc/ServerList.h"

#include "adapters/odbc/DriverName.h"
#include "platform/Text.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace kvex::odbc {
namespace {

std::vector<std::u16string> listed(const recordset::ConnectionString &text) {
    std::u16string list = setting(text, u"Server");
    // What data sources of PostgreSQL call it.
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
    // An address of IPv6 without brackets has colons, too, but no port.
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

} // namespace

std::vector<ServerAddress> serversToTry(const recordset::ConnectionString &text) {
    const DriverFamily family = driverFamily(text);
    if (family != DriverFamily::postgres && family != DriverFamily::mariaDb &&
        family != DriverFamily::mySql) {
        return {};
    }
    std::vector<ServerAddress> servers;
    std::ranges::transform(listed(text), std::back_inserter(servers), addressOf);
    const bool isPlain = servers.size() == 1 && servers.front().port.empty();
    return isPlain ? std::vector<ServerAddress>() : servers;
}

} // namespace kvex::odbc
