#include "host/matching/MessageLines.h"

#include "host/matching/Moment.h"
#include "platform/Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <limits>
#include <string>

namespace kvex::host {
namespace {

using Json = nlohmann::json;

constexpr std::array<std::string_view, 5> members{"from", "account", "text", "at", "service"};
enum Member : std::size_t { from, account, text, at, service };

std::string quotedName(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

/// Takes the parser's events, so that no document is built.
class Reader final : public nlohmann::json_sax<Json> {
public:
    explicit Reader(Message &message) : message_(message) {}

    bool null() override { return refuseValue(); }
    bool boolean(bool value) override {
        if (!isAt(service)) {
            return refuseValue();
        }
        message_.isService = value;
        return true;
    }
    bool number_integer(number_integer_t value) override { return takeAccount(value); }
    bool number_unsigned(number_unsigned_t value) override {
        constexpr auto most = std::numeric_limits<std::int32_t>::max();
        return takeAccount(static_cast<std::int64_t>(
            std::min<number_unsigned_t>(value, static_cast<number_unsigned_t>(most) + 1)));
    }
    bool number_float(number_float_t /*value*/, const string_t & /*text*/) override {
        return refuseValue();
    }
    bool string(string_t &value) override {
        if (isAt(from)) {
            message_.sender = fromUtf8(value);
        } else if (isAt(text)) {
            message_.text = fromUtf8(value);
        } else if (isAt(at)) {
            auto moment = momentFrom(value);
            if (!moment) {
                throw BadMessage("\"at\" is no moment. Write it as " + std::string(momentForms));
            }
            message_.moment = std::move(*moment);
        } else {
            return refuseValue();
        }
        return true;
    }
    bool binary(binary_t & /*value*/) override { return refuseValue(); }
    bool start_object(std::size_t /*size*/) override {
        if (isInside_) {
            return refuseValue();
        }
        isInside_ = true;
        return true;
    }
    bool end_object() override { return true; }
    bool start_array(std::size_t /*size*/) override { return refuseValue(); }
    bool end_array() override { return true; }
    bool key(string_t &name) override {
        const auto *found = std::ranges::find(members, name);
        if (found == members.end()) {
            throw BadMessage("a message has no member " + quotedName(name) +
                             ". It has from, account and text, and may have at and service");
        }
        member_ = static_cast<Member>(found - members.begin());
        if (isSeen_[member_]) {
            throw BadMessage(quotedName(name) + " stands there twice");
        }
        isSeen_[member_] = true;
        return true;
    }
    bool parse_error(std::size_t position, const std::string & /*token*/,
                     const nlohmann::detail::exception & /*error*/) override {
        throw BadMessage("no JSON object of one line: it cannot be read at byte " +
                         std::to_string(position));
    }

    void requireWhole() const {
        for (const Member needed : {from, account, text}) {
            if (!isSeen_[needed]) {
                throw BadMessage(quotedName(members[needed]) + " is missing");
            }
        }
    }
    [[nodiscard]] bool hasMoment() const { return isSeen_[at]; }

private:
    [[nodiscard]] bool isAt(Member member) const { return isInside_ && member_ == member; }

    [[noreturn]] bool refuseValue() const {
        if (!isInside_) {
            throw BadMessage("a message is a JSON object");
        }
        throw BadMessage(quotedName(members[member_]) + " must be " +
                         (member_ == account   ? "the id of an account, a number"
                          : member_ == service ? "true or false"
                                               : "a text in quotation marks"));
    }
    bool takeAccount(std::int64_t value) {
        if (!isAt(account) || value < std::numeric_limits<std::int32_t>::min() ||
            value > std::numeric_limits<std::int32_t>::max()) {
            return refuseValue();
        }
        message_.account = static_cast<std::int32_t>(value);
        return true;
    }

    Message &message_;
    Member member_ = from;
    bool isInside_ = false;
    std::array<bool, members.size()> isSeen_{};
};

} // namespace

Message messageFrom(std::string_view line, const std::u16string &now) {
    Message message;
    Reader reader(message);
    Json::sax_parse(line.begin(), line.end(), &reader);
    reader.requireWhole();
    if (!reader.hasMoment()) {
        message.moment = now;
    }
    return message;
}

bool isBlankLine(std::string_view line) {
    return line.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

} // namespace kvex::host
