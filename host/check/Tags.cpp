#include "host/check/Tags.h"

#include <algorithm>
#include <array>

namespace kvex::host {
namespace {

constexpr auto npos = std::u16string::npos;

constexpr std::array allTags{
    Tag{u"IGNOREIFSERVICE", false, false},
    Tag{u"PEOPLE", false, true},
    Tag{u"ACCOUNT", false, true},
    Tag{u"WORD", false, true},
    Tag{u"DATETIME", false, false},
    Tag{u"DIST", true, false},
    Tag{u"REPLY", true, false},
    Tag{u"ALERT", true, false},
    Tag{u"DELETE", true, false},
    Tag{u"IGNOREFURTHERRULES", true, false},
};

/// "<NOT><ALL>" and the other pairs have one length.
constexpr std::size_t modifiersLength = 10;

/// What stands behind the first opening tag, in the place of the modifiers.
std::u16string_view modifiersIn(std::u16string_view text, const Tag &tag) {
    const std::u16string opening = tag.opening();
    const std::size_t at = text.find(opening);
    return at == npos ? std::u16string_view() : text.substr(at + opening.size(), modifiersLength);
}

} // namespace

std::u16string Tag::opening() const {
    return u'<' + std::u16string(name) + u'>';
}

std::u16string Tag::closing() const {
    return u"</" + std::u16string(name) + u'>';
}

std::u16string_view Tag::column() const {
    return isInActions ? u"ActionParam" : u"QueryParam";
}

const std::u16string &Tag::stored(const ReadRule &rule) const {
    return isInActions ? rule.row.actionParam : rule.row.queryParam;
}

std::span<const Tag> tags() {
    return allTags;
}

std::vector<const Tag *> repeatedTags(const ReadRule &rule) {
    std::vector<const Tag *> repeated;
    for (const Tag &tag : allTags) {
        const std::u16string opening = tag.opening();
        const std::u16string &text = tag.stored(rule);
        const std::size_t first = text.find(opening);
        if (first != npos && text.find(opening, first + 1) != npos) {
            repeated.push_back(&tag);
        }
    }
    return repeated;
}

std::vector<Misread> misreadModifiers(const ReadRule &rule) {
    std::vector<Misread> misread;
    if (rule.read.end || rule.read.values.allMessages) {
        return misread;
    }
    for (const Tag &tag : allTags) {
        // The editor writes what the component has read.
        const auto read =
            tag.hasModifiers ? modifiersIn(rule.written.queryParam, tag) : std::u16string_view();
        const auto stored = modifiersIn(rule.row.queryParam, tag);
        if (!read.empty() && stored != read) {
            misread.push_back({&tag, stored, read});
        }
    }
    return misread;
}

bool hasSoundConditions(const ReadRule &rule) {
    const auto isLost = [&](const Tag &tag) {
        return !tag.isInActions && !rule.read.values.allMessages &&
               rule.row.queryParam.find(tag.opening()) != npos &&
               rule.written.queryParam.find(tag.opening()) == npos;
    };
    const auto isCondition = [](const Tag *tag) { return !tag->isInActions; };
    return !rule.read.end && std::ranges::none_of(allTags, isLost) &&
           std::ranges::none_of(repeatedTags(rule), isCondition) && misreadModifiers(rule).empty();
}

} // namespace kvex::host
