#include "adapters/terminal/io/Cluster.h"

#include "platform/Text.h"

#include <deque>
#include <map>
#include <mutex>

namespace kvex::terminal {
namespace {

constexpr std::uint32_t firstLong = 0x10000;

/// The clusters of more than one unit, in the order of their numbers.
struct LongClusters {
    std::mutex mutex;
    std::deque<std::u16string> texts;
    std::map<std::u16string_view, std::uint32_t> numbers;
};

LongClusters &longClusters() {
    static LongClusters clusters;
    return clusters;
}

std::uint32_t numberOf(std::u16string_view text) {
    LongClusters &all = longClusters();
    const std::lock_guard lock(all.mutex);
    const auto found = all.numbers.find(text);
    if (found != all.numbers.end()) {
        return found->second;
    }
    const auto number = firstLong + static_cast<std::uint32_t>(all.texts.size());
    all.numbers.emplace(all.texts.emplace_back(text), number);
    return number;
}

} // namespace

Cluster::Cluster(std::u16string_view text)
    : number_(text.empty()       ? 0
              : text.size() == 1 ? text.front()
                                 : numberOf(text)) {}

std::u16string Cluster::text() const {
    if (!isLong()) {
        return std::u16string(isNothing() ? 0 : 1, static_cast<char16_t>(number_));
    }
    LongClusters &all = longClusters();
    const std::lock_guard lock(all.mutex);
    return all.texts[number_ - firstLong];
}

void Cluster::appendTo(std::string &utf8) const {
    if (isAscii()) {
        utf8 += static_cast<char>(number_);
    } else {
        utf8 += toUtf8(text());
    }
}

} // namespace kvex::terminal
