#include "host/transfer/LinedJson.h"

#include "platform/Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <limits>
#include <set>
#include <utility>

namespace kvex::host {
namespace {

using Json = nlohmann::json;

/// Where the parser stands: it takes the text byte by byte.
struct Place {
    std::size_t line = 1;
    char last = '\0';
};

/// An iterator over the text that keeps `place`. The parser advances one copy of it at a time.
class Bytes {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char *;
    using reference = const char &;

    Bytes(const char *at, Place &place) : at_(at), place_(&place) {}
    reference operator*() const { return *at_; }
    Bytes &operator++() {
        place_->last = *at_++;
        place_->line += place_->last == '\n' ? 1 : 0;
        return *this;
    }
    Bytes operator++(int) {
        const Bytes before = *this;
        ++*this;
        return before;
    }
    friend bool operator==(const Bytes &left, const Bytes &right) { return left.at_ == right.at_; }

private:
    const char *at_;
    Place *place_;
};

/// The library's text without its own number and position. It can quote bytes that are not UTF-8.
std::string reasonIn(std::string_view text) {
    for (const std::string_view before : {"] ", "parse error", ": "}) {
        const std::size_t found = text.find(before);
        text.remove_prefix(found == std::string_view::npos ? 0 : found + before.size());
    }
    return toUtf8(fromUtf8(text));
}

class Builder final : public nlohmann::json_sax<Json> {
public:
    Builder(const Place &place, Problems &problems) : place_(place), problems_(problems) {}

    [[nodiscard]] LinedJson take() { return std::move(root_.values.front()); }

    bool null() final { return add({.kind = LinedJson::Kind::null}); }
    bool boolean(bool value) final {
        return add({.kind = LinedJson::Kind::boolean, .flag = value});
    }
    bool number_integer(number_integer_t value) final { return addNumber(value); }
    bool number_unsigned(number_unsigned_t value) final {
        return value > static_cast<number_unsigned_t>(std::numeric_limits<std::int64_t>::max())
                   ? add({.kind = LinedJson::Kind::other})
                   : addNumber(static_cast<std::int64_t>(value));
    }
    bool number_float(number_float_t /*value*/, const string_t & /*text*/) final {
        return add({.kind = LinedJson::Kind::other});
    }
    bool string(string_t &value) final {
        return add({.kind = LinedJson::Kind::text, .text = std::move(value)});
    }
    bool binary(binary_t & /*value*/) final { return false; }
    bool start_object(std::size_t /*size*/) final { return open(LinedJson::Kind::object); }
    bool start_array(std::size_t /*size*/) final { return open(LinedJson::Kind::array); }
    bool end_object() final { return close(); }
    bool end_array() final { return close(); }
    bool key(string_t &name) final {
        if (!open_.back().taken.insert(name).second) {
            return refuse("The name \"" + name + "\" stands twice in one object.");
        }
        open_.back().nameLine = place_.line;
        open_.back().value.names.push_back(std::move(name));
        return true;
    }
    bool parse_error(std::size_t /*position*/, const std::string & /*last*/,
                     const nlohmann::detail::exception &error) final {
        return refuse("The file is no JSON in UTF-8 from here on (" + reasonIn(error.what()) +
                      ").");
    }

private:
    struct Open {
        LinedJson value;
        std::size_t nameLine;
        std::set<std::string, std::less<>> taken;
    };

    bool refuse(const std::string &sentence) {
        problems_.push_back({place_.line, sentence});
        return false;
    }
    bool addNumber(std::int64_t value) {
        return add({.kind = LinedJson::Kind::integer, .number = value});
    }
    [[nodiscard]] std::size_t lineOfNext() const {
        if (!open_.empty() && open_.back().value.kind == LinedJson::Kind::object) {
            return open_.back().nameLine;
        }
        return place_.line;
    }
    bool add(LinedJson value) {
        const bool isNumber =
            value.kind == LinedJson::Kind::integer || value.kind == LinedJson::Kind::other;
        // The parser has read one byte behind a number.
        const bool isMember = !open_.empty() && open_.back().value.kind == LinedJson::Kind::object;
        value.line = lineOfNext() - (isNumber && !isMember && place_.last == '\n' ? 1 : 0);
        (open_.empty() ? root_ : open_.back().value).values.push_back(std::move(value));
        return true;
    }
    bool open(LinedJson::Kind kind) {
        constexpr std::size_t deepest = 16;
        if (open_.size() == deepest) {
            return refuse("No export has values that are nested so deep.");
        }
        LinedJson value{.kind = kind, .line = lineOfNext()};
        open_.push_back({std::move(value), 0, {}});
        return true;
    }
    bool close() {
        LinedJson value = std::move(open_.back().value);
        open_.pop_back();
        (open_.empty() ? root_ : open_.back().value).values.push_back(std::move(value));
        return true;
    }

    const Place &place_;
    Problems &problems_;
    LinedJson root_;
    std::vector<Open> open_;
};

} // namespace

const LinedJson *LinedJson::member(std::string_view name) const {
    const auto found = std::ranges::find(names, name);
    return found == names.end() ? nullptr
                                : &values[static_cast<std::size_t>(found - names.begin())];
}

std::optional<LinedJson> readLinedJson(std::string_view text, Problems &problems) {
    Place place;
    Builder builder(place, problems);
    const bool isRead = Json::sax_parse(Bytes(text.data(), place),
                                        Bytes(text.data() + text.size(), place), &builder);
    return isRead ? std::optional(builder.take()) : std::nullopt;
}

} // namespace kvex::host
