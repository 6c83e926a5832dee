// Any bytes of a terminal become whole characters and keys, whatever pieces they arrive in.
//
// The first byte of the input is the length of the pieces; the others are what the terminal sends.
#include "adapters/terminal/io/Decoder.h"
#include "fuzz/Input.h"
#include "fuzz/Property.h"
#include "platform/Text.h"

#include <algorithm>
#include <vector>

namespace kvex::fuzz {
namespace {

using namespace terminal;

const Decoder::Keys keys{{"\x1b[[A", controls::Key::help},
                         {"\x1bOA", controls::Key::up},
                         {"\x1b"
                          "A",
                          controls::Key::up}};
const Decoder::Time start{};

std::vector<terminal::Input> inputsOf(Decoder &decoder) {
    std::vector<terminal::Input> inputs;
    while (auto input = decoder.next()) {
        inputs.push_back(std::move(*input));
    }
    return inputs;
}

void requireText(const std::u16string &text, std::u16string_view allowed) {
    require(fromUtf8(toUtf8(text)) == text, "no half of a character arrives", text);
    const bool hasControl = std::ranges::any_of(text, [allowed](char16_t unit) {
        const bool isControl = unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
        return isControl && allowed.find(unit) == std::u16string_view::npos;
    });
    require(!hasControl, "no control character arrives as text", text);
}

void requireWhole(const std::vector<terminal::Input> &inputs) {
    for (const terminal::Input &input : inputs) {
        if (const auto *const typed = std::get_if<Typed>(&input)) {
            require(!typed->cluster.empty(), "a typed character is not empty");
            requireText(typed->cluster, u"");
        } else if (const auto *const pasted = std::get_if<Pasted>(&input)) {
            requireText(pasted->text, u"\n\t");
        } else if (const auto *const mouse = std::get_if<MouseEvent>(&input)) {
            require(mouse->at.column >= 0 && mouse->at.row >= 0, "the mouse is on the screen");
        }
    }
}

/// After a pause and the end of a paste, the next key counts again.
void requireListening(Decoder &decoder) {
    decoder.pause(start + std::chrono::hours(1));
    decoder.take("\x1b[201~", start + std::chrono::hours(2));
    (void)inputsOf(decoder);
    decoder.take("y", start + std::chrono::hours(3));
    require(inputsOf(decoder) == std::vector<terminal::Input>{Typed{u"y"}},
            "a key counts after a pause");
}

void check(Input input) {
    const std::size_t length = 1 + input.below(64);
    const std::string_view bytes = input.rest();
    Decoder whole(keys);
    whole.take(bytes, start);
    Decoder inPieces(keys);
    Decoder withPauses(keys);
    for (std::size_t at = 0; at < bytes.size(); at += length) {
        inPieces.take(bytes.substr(at, length), start);
        withPauses.take(bytes.substr(at, length), start);
        withPauses.pause(start + Decoder::patience);
    }
    const std::vector<terminal::Input> inputs = inputsOf(whole);
    require(inputsOf(inPieces) == inputs, "pieces mean the same as the whole");
    requireWhole(inputs);
    requireWhole(inputsOf(withPauses));
    requireListening(whole);
    requireListening(withPauses);
}

} // namespace
} // namespace kvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kvex::fuzz::check(kvex::fuzz::Input(data, size));
    return 0;
}
