#include "host/matching/WordFinder.h"

#include "platform/Unicode.h"
#include "platform/Utf16.h"

#include <algorithm>
#include <numeric>

namespace kvex::host {
namespace {

constexpr std::size_t unitCount = 0x10000;

bool isSurrogate(char16_t unit) {
    return isHighSurrogate(unit) || isLowSurrogate(unit);
}

/// The folding of each UTF-16 unit. That of a surrogate depends on its other half, so it stays as
/// it is here.
std::u16string foldingOfUnits() {
    std::u16string units(unitCount, u'\0');
    std::iota(units.begin(), units.end(), u'\0');
    const auto firstSurrogate = units.begin() + 0xD800;
    const auto afterSurrogates = units.begin() + 0xE000;
    return foldCase({units.begin(), firstSurrogate}) +
           std::u16string(firstSurrogate, afterSurrogates) +
           foldCase({afterSurrogates, units.end()});
}

} // namespace

bool WordFinder::hasSurrogates(std::u16string_view text) {
    return std::ranges::any_of(text, isSurrogate);
}

std::u16string WordFinder::foldedText(std::u16string_view text) {
    return foldCase(text);
}

WordFinder::WordFinder(const std::vector<std::u16string> &words) {
    static const std::u16string folding = foldingOfUnits();
    folding_ = folding.data();
    if (!words.empty()) {
        build(words);
    }
}

void WordFinder::build(const std::vector<std::u16string> &words) {
    fromRoot_.assign(unitCount, root);
    std::ranges::transform(words, std::back_inserter(sizes_), [](const std::u16string &word) {
        return static_cast<std::uint32_t>(word.size());
    });
    std::vector<std::uint32_t> sorted(words.size());
    std::iota(sorted.begin(), sorted.end(), 0U);
    std::ranges::sort(sorted, {}, [&](std::uint32_t word) { return words[word]; });

    // The words that begin with a state stand together in `sorted`.
    struct Range {
        std::size_t first;
        std::size_t end;
        std::size_t size;
        State parent;
    };
    std::vector<Range> ranges{{0, sorted.size(), 0, root}};
    states_.emplace_back();
    for (State state = root; state < states_.size(); ++state) {
        auto [first, end, size, parent] = ranges[state];
        states_[state].children = static_cast<State>(states_.size());
        if (state != root) {
            Node &node = states_[state];
            node.fallback = parent == root ? root : next(states_[parent].fallback, node.unit);
            node.ended = states_[node.fallback].ended;
            if (words[sorted[first]].size() == size) {
                node.ended = state;
                node.word = sorted[first++];
            }
        }
        while (first < end) {
            const char16_t unit = words[sorted[first]][size];
            const std::size_t start = first;
            while (first < end && words[sorted[first]][size] == unit) {
                ++first;
            }
            if (state == root) {
                fromRoot_[unit] = static_cast<State>(states_.size());
            }
            states_.push_back({.unit = unit});
            ranges.push_back({start, first, size + 1, state});
        }
    }
    states_.push_back({.children = static_cast<State>(states_.size())});
}

} // namespace kvex::host
