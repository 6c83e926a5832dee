// What a connection string says reaches the driver, however it is spelled; the string that is
// advised for a URL says the same as the URL.
//
// The first byte chooses: any text, entries that the input spells, or a URL.
#include "adapters/odbc/ConnectionText.h"
#include "adapters/recordset/ConnectionString.h"
#include "fuzz/Input.h"
#include "fuzz/Property.h"
#include "host/kvexrules/DatabaseUrl.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <array>
#include <optional>
#include <string>

namespace kvex::fuzz {
namespace {

using recordset::ConnectionString;
using Text = std::u16string_view;

/// Entries in one text, for a comparison.
std::u16string listed(const ConnectionString &text) {
    std::u16string list;
    for (const auto &[key, value] : text.entries()) {
        list.append(key).append(u" is ").append(value).append(u"\n");
    }
    return list;
}

std::u16string enclosed(char16_t opening, Text value, char16_t closing) {
    std::u16string result(1, opening);
    for (const char16_t unit : value) {
        result.append(unit == closing ? 2 : 1, unit);
    }
    return result + closing;
}

bool canBePlain(Text value) {
    return value.find(u';') == Text::npos && trimmed(value) == value &&
           (value.empty() || Text(u"{'\"").find(value.front()) == Text::npos);
}

std::u16string spelledValue(Input &input, Text value) {
    switch (input.below(4)) {
    case 0:
        return enclosed(u'{', value, u'}');
    case 1:
        return enclosed(u'"', value, u'"');
    case 2:
        return enclosed(u'\'', value, u'\'');
    default:
        return canBePlain(value) ? std::u16string(value) : enclosed(u'{', value, u'}');
    }
}

std::u16string blanks(Input &input) {
    return std::u16string(input.below(3), u' ');
}

/// The driver's text says the same, apart from what only the provider reads. The keys that the
/// inputs of `checkEntries` have are none of those.
void requireDriverGets(const ConnectionString &text) {
    const auto native = odbc::nativeTexts(text);
    require(native.size() == 1, "a driver without lists of servers gets one text");
    requireEqual(listed(ConnectionString(native.front())), listed(text),
                 "the driver gets each entry");
}

void checkEntries(Input &input) {
    std::u16string text = u"Driver=Some Driver;";
    std::u16string expected = u"Driver is Some Driver\n";
    while (!input.atEnd()) {
        // No key that the driver must be told begins with X.
        std::u16string key = u"X" + input.text();
        std::erase_if(key, [](char16_t unit) { return unit == u'=' || unit == u';'; });
        key = trimmed(key);
        const std::u16string value = input.text();
        text += blanks(input) + key + blanks(input) + u"=" + blanks(input);
        text += spelledValue(input, value) + blanks(input) + u";";
        expected.append(key).append(u" is ").append(value).append(u"\n");
    }
    const ConnectionString read(text);
    requireEqual(listed(read), expected, "each entry is read as it was spelled");
    requireDriverGets(read);
}

void checkAnyText(Input &input) {
    const std::u16string text = fromUtf8(input.rest());
    std::optional<ConnectionString> read;
    try {
        read.emplace(text);
    } catch (const Error &error) {
        constexpr Text beginning = u"The connection string cannot be read at character ";
        require(error.number() == error_number::badArgument &&
                    error.description().starts_with(beginning),
                "an unreadable text is refused", error.description());
        return;
    }
    if (read->isPath()) {
        requireEqual(read->value(u"Data Source"), trimmed(text), "a path is the whole text");
        return;
    }
    std::u16string written;
    for (const auto &[key, value] : read->entries()) {
        written += key + u"=" + enclosed(u'{', value, u'}') + u";";
    }
    if (!written.empty()) {
        requireEqual(listed(ConnectionString(written)), listed(*read),
                     "entries that were written again are read again");
    }
}

std::string encoded(std::u16string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (const char byte : toUtf8(text)) {
        const auto number = static_cast<unsigned char>(byte);
        result += {'%', digits[number / 16], digits[number % 16]};
    }
    return result;
}

void checkUrl(Input &input) {
    struct Address {
        std::string_view written;
        Text server;
        Text port;
    };
    constexpr std::array addresses{
        Address{"db.example", u"db.example", u""},
        Address{"db.example:5433", u"db.example", u"5433"},
        Address{"[fe80::1]:5433", u"fe80::1", u"5433"},
        Address{"db1,db2:5433", u"db1,db2:5433", u""},
    };
    constexpr std::array<std::string_view, 4> schemes{"postgresql", "JDBC:mysql", "mariadb+x",
                                                      "other"};
    const Address address = input.one(addresses);
    const std::string scheme(input.one(schemes));
    const std::string secret = "s3cr@t";
    const std::string query = input.flag() ? "?password=s3cret" : "";
    const auto otherText = [&] {
        std::u16string text = input.text();
        const bool isSecret = text.find(u"s3cr") != Text::npos;
        return isSecret ? std::u16string() : text;
    };
    const std::u16string user = otherText();
    const std::u16string database = otherText();
    const std::string password = input.flag() ? ":" + secret + "/" : "";
    const std::string url = scheme + "://" + encoded(user) + password + "@" +
                            std::string(address.written) + "/" + encoded(database) + query;

    const std::string advice = host::adviceForUrl(url).value_or("");
    require(advice.find("s3cr") == std::string::npos, "the advice repeats no password",
            fromUtf8(advice));
    constexpr std::string_view marker = "Use this connection string: ";
    const std::size_t at = advice.find(marker);
    require(at != std::string::npos, "the advice has a connection string", fromUtf8(advice));
    const ConnectionString read(fromUtf8(std::string_view(advice).substr(at + marker.size())));
    requireEqual(read.value(u"Server"), address.server, "the advice has the URL's server");
    requireEqual(read.value(u"Port"), address.port, "the advice has the URL's port");
    requireEqual(read.value(u"Database"), database, "the advice has the URL's database");
    requireEqual(read.value(u"UID"), user, "the advice has the URL's user");
    requireEqual(read.value(u"PWD"), password.empty() ? u"" : u"...",
                 "the advice leaves a place for the password");
}

void check(Input input) {
    constexpr std::array checks{checkAnyText, checkEntries, checkUrl};
    input.one(checks)(input);
}

} // namespace
} // namespace kvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kvex::fuzz::check(kvex::fuzz::Input(data, size));
    return 0;
}
