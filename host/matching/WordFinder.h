// Finds many words in a text at once, without regard to case.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvex::host {

/// The automaton of Aho and Corasick. One pass over a text finds every place of every word. The
/// time grows with the text and the number of places, but not with the number of words.
class WordFinder {
public:
    /// `words` are folded (foldCase), not empty, and all different.
    explicit WordFinder(const std::vector<std::u16string> &words);

    /// Calls `found(word, start)` for every place of a word: its place in `words`, and where it
    /// begins in `text`.
    template <class Found> void find(std::u16string_view text, const Found &found) const {
        if (sizes_.empty()) {
            return;
        }
        std::u16string folded;
        if (hasSurrogates(text)) {
            folded = foldedText(text);
            text = folded;
        }
        State state = root;
        for (std::size_t at = 0; at < text.size(); ++at) {
            state = next(state, folding_[text[at]]);
            for (State ended = states_[state].ended; ended != root;
                 ended = states_[states_[ended].fallback].ended) {
                const std::uint32_t word = states_[ended].word;
                found(word, at + 1 - sizes_[word]);
            }
        }
    }

private:
    using State = std::uint32_t;
    static constexpr State root = 0;

    /// A beginning of a word. States stand in the order of their lengths. So the states that are
    /// one character longer stand together, in the order of that character.
    struct Node {
        /// The state's last character.
        char16_t unit = 0;
        /// The first of the states that are one character longer.
        State children = root;
        /// The longest other state with which this one ends.
        State fallback = root;
        /// The longest state with which this one ends and that is a whole word; root without one.
        State ended = root;
        std::uint32_t word = 0;
    };

    [[nodiscard]] static bool hasSurrogates(std::u16string_view text);
    [[nodiscard]] static std::u16string foldedText(std::u16string_view text);
    /// The state one character longer; root when there is none.
    [[nodiscard]] State child(State state, char16_t unit) const {
        if (state == root) {
            return fromRoot_[unit];
        }
        const State end = states_[state + 1].children;
        for (State at = states_[state].children; at < end; ++at) {
            if (states_[at].unit >= unit) {
                return states_[at].unit == unit ? at : root;
            }
        }
        return root;
    }
    [[nodiscard]] State next(State state, char16_t unit) const {
        State found = child(state, unit);
        while (found == root && state != root) {
            state = states_[state].fallback;
            found = child(state, unit);
        }
        return found;
    }
    void build(const std::vector<std::u16string> &words);

    /// The folding of each UTF-16 unit that is no surrogate. All finders share it.
    const char16_t *folding_;
    std::vector<State> fromRoot_;
    /// One more than there are states, as the end of the last one's children.
    std::vector<Node> states_;
    std::vector<std::uint32_t> sizes_;
};

} // namespace kvex::host
