#include "adapters/terminal/io/Decoder.h"

#include "adapters/terminal/io/Capabilities.h"
#include "platform/Text.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {

using namespace kvex::terminal;
using kvex::controls::Key;
using Inputs = std::vector<Input>;
using namespace std::chrono_literals;

const Decoder::Time start{};

Inputs allOf(Decoder &decoder) {
    Inputs inputs;
    while (auto input = decoder.next()) {
        inputs.push_back(std::move(*input));
    }
    return inputs;
}

/// The inputs of these bytes, with a pause after them.
Inputs inputsOf(std::string_view bytes, Decoder decoder = Decoder()) {
    decoder.take(bytes, start);
    Inputs inputs = allOf(decoder);
    if (decoder.isWaiting()) {
        decoder.pause(start + Decoder::patience);
    }
    for (Input &input : allOf(decoder)) {
        inputs.push_back(std::move(input));
    }
    EXPECT_FALSE(decoder.isWaiting());
    return inputs;
}

struct Sequence {
    std::string bytes;
    Input input;
};

const std::vector<Sequence> sequences{
    // Characters
    {"a", Typed{u"a"}},
    {" ", Typed{u" "}},
    {"~", Typed{u"~"}},
    {"\xC3\xA9", Typed{u"é"}},
    {"\xE0\xA4\xB9", Typed{u"ह"}},
    {"\xF0\x9F\x98\x80", Typed{u"😀"}},
    {"\xC2\xA9", Typed{u"\u00A9"}},
    {"\xDF\x80", Typed{u"\u07C0"}},
    {"\xEF\xBC\xA1", Typed{u"\uFF21"}},
    {"\xF4\x80\x80\x80", Typed{u"\U00100000"}},
    {"\x1b"
     "a",
     Typed{u"a", true}},
    {"\x1b\xC3\xA9", Typed{u"é", true}},
    {"\x1b ", Typed{u" ", true}},
    // Control characters
    {std::string(1, '\0'), Stroke{Key::toggleRow}},
    {"\x01", Stroke{Key::selectAll}},
    {"\x03", Stroke{Key::copy}},
    {"\x08", Stroke{Key::backspace}},
    {"\t", Stroke{Key::tab}},
    {"\n", Stroke{Key::enter}},
    {"\f", Repaint{}},
    {"\r", Stroke{Key::enter}},
    {"\x16", Stroke{Key::paste}},
    {"\x18", Stroke{Key::cut}},
    {"\x1a", Stroke{Key::suspend}},
    {"\x7f", Stroke{Key::backspace}},
    // Arrows
    {"\x1b[A", Stroke{Key::up}},
    {"\x1b[B", Stroke{Key::down}},
    {"\x1b[C", Stroke{Key::right}},
    {"\x1b[D", Stroke{Key::left}},
    {"\x1bOA", Stroke{Key::up}},
    {"\x1bOB", Stroke{Key::down}},
    {"\x1bOC", Stroke{Key::right}},
    {"\x1bOD", Stroke{Key::left}},
    {"\x1b[1;2A", Stroke{Key::selectUp}},
    {"\x1b[1;2B", Stroke{Key::selectDown}},
    {"\x1b[1;2C", Stroke{Key::selectRight}},
    {"\x1b[1;2D", Stroke{Key::selectLeft}},
    {"\x1b[1;5A", Stroke{Key::goUp}},
    {"\x1b[1;5B", Stroke{Key::goDown}},
    {"\x1b[1;5C", Stroke{Key::wordRight}},
    {"\x1b[1;3D", Stroke{Key::wordLeft}},
    {"\x1b[1;6C", Stroke{Key::selectWordRight}},
    {"\x1b[1;6D", Stroke{Key::selectWordLeft}},
    {"\x1b[5D", Stroke{Key::wordLeft}},
    {"\x1bO5D", Stroke{Key::wordLeft}},
    {"\x1bO1;5C", Stroke{Key::wordRight}},
    {"\x1b[a", Stroke{Key::selectUp}},
    {"\x1b[d", Stroke{Key::selectLeft}},
    {"\x1bOc", Stroke{Key::wordRight}},
    // Home and End
    {"\x1b[H", Stroke{Key::home}},
    {"\x1b[F", Stroke{Key::end}},
    {"\x1bOH", Stroke{Key::home}},
    {"\x1bOF", Stroke{Key::end}},
    {"\x1b[1~", Stroke{Key::home}},
    {"\x1b[4~", Stroke{Key::end}},
    {"\x1b[7~", Stroke{Key::home}},
    {"\x1b[8~", Stroke{Key::end}},
    {"\x1b[1;5H", Stroke{Key::textStart}},
    {"\x1b[1;5F", Stroke{Key::textEnd}},
    {"\x1b[7^", Stroke{Key::textStart}},
    {"\x1b[1;2H", Stroke{Key::selectHome}},
    {"\x1b[8$", Stroke{Key::selectEnd}},
    {"\x1b[8@", Stroke{Key::selectEnd}},
    // Others
    {"\x1b[5~", Stroke{Key::pageUp}},
    {"\x1b[6~", Stroke{Key::pageDown}},
    {"\x1b[3~", Stroke{Key::deleteKey}},
    {"\x1b[3;2~", Stroke{Key::cut}},
    {"\x1b[2;2~", Stroke{Key::paste}},
    {"\x1b[2;5~", Stroke{Key::copy}},
    {"\x1b[Z", Stroke{Key::shiftTab}},
    {"\x1bOM", Stroke{Key::enter}},
    {"\x1bOI", Stroke{Key::tab}},
    {"\x1bOP", Stroke{Key::help}},
    {"\x1b[11~", Stroke{Key::help}},
    {"\x1b[[A", Stroke{Key::help}},
    {"\x1b[P", Stroke{Key::help}},
    {"\x1b[1;2P", Stroke{Key::help}},
    {"\x1bOQ", Stroke{Key::accessKey}},
    {"\x1b[12~", Stroke{Key::accessKey}},
    {"\x1b[[B", Stroke{Key::accessKey}},
    // The keypad
    {"\x1bOp", Typed{u"0"}},
    {"\x1bOy", Typed{u"9"}},
    {"\x1bOj", Typed{u"*"}},
    {"\x1bOX", Typed{u"="}},
    // The mouse
    {"\x1b[<0;5;3M", MouseEvent{MouseEvent::Kind::press, {4, 2}}},
    {"\x1b[<64;1;1M", MouseEvent{MouseEvent::Kind::wheelUp, {0, 0}}},
    {"\x1b[<65;300;200M", MouseEvent{MouseEvent::Kind::wheelDown, {299, 199}}},
    {"\x1b[<4;5;3M", MouseEvent{MouseEvent::Kind::press, {4, 2}}},      // with Shift
    {"\x1b[<81;5;3M", MouseEvent{MouseEvent::Kind::wheelDown, {4, 2}}}, // with Ctrl
    {"\x1b[M !!", MouseEvent{MouseEvent::Kind::press, {0, 0}}},
    {"\x1b[M`%#", MouseEvent{MouseEvent::Kind::wheelUp, {4, 2}}},
    // Pastes
    {"\x1b[200~abc\x1b[201~", Pasted{u"abc"}},
    {"\x1b[200~\x1b[201~", Pasted{u""}},
    {"\x1b[200~a\r\nb\rc\nd\te\x1b[A\x1b[20\x1b[201~", Pasted{u"a\nb\nc\nd\te[A[20"}},
    {"\x1b[200~\xE0\xA4\xB9\xFF\x1b[201~", Pasted{u"ह\uFFFD"}},
};

TEST(Decoder, KnowsTheKeysOfCommonTerminals) {
    for (const Sequence &sequence : sequences) {
        EXPECT_EQ(inputsOf(sequence.bytes), Inputs{sequence.input})
            << testing::PrintToString(sequence.bytes);
        EXPECT_EQ(inputsOf("x" + sequence.bytes + "y"),
                  (Inputs{Typed{u"x"}, sequence.input, Typed{u"y"}}))
            << testing::PrintToString(sequence.bytes);
    }
}

TEST(Decoder, TakesASequenceInAnyPieces) {
    for (const Sequence &sequence : sequences) {
        const std::string bytes = sequence.bytes + "y";
        for (std::size_t cut = 1; cut < bytes.size(); ++cut) {
            Decoder decoder;
            decoder.take(std::string_view(bytes).substr(0, cut), start);
            Inputs inputs = allOf(decoder);
            decoder.take(std::string_view(bytes).substr(cut), start + 40ms);
            for (Input &input : allOf(decoder)) {
                inputs.push_back(std::move(input));
            }
            EXPECT_EQ(inputs, (Inputs{sequence.input, Typed{u"y"}}))
                << testing::PrintToString(sequence.bytes) << " cut at " << cut;
        }
    }
}

TEST(Decoder, EndsAnySequenceWithAPause) {
    for (const Sequence &sequence : sequences) {
        for (std::size_t cut = 1; cut < sequence.bytes.size(); ++cut) {
            const std::string_view begin = std::string_view(sequence.bytes).substr(0, cut);
            if (begin.starts_with("\x1b[200~")) {
                continue;
            }
            Decoder decoder;
            decoder.take(begin, start);
            EXPECT_TRUE(decoder.isWaiting()) << testing::PrintToString(begin);
            decoder.pause(start + Decoder::patience);
            (void)allOf(decoder);
            decoder.take("y", start + 1s);
            EXPECT_EQ(allOf(decoder), Inputs{Typed{u"y"}}) << testing::PrintToString(begin);
        }
    }
}

TEST(Decoder, TakesEscWithNothingAfterItForTheKey) {
    EXPECT_EQ(inputsOf("\x1b"), Inputs{Stroke{Key::escape}});
    EXPECT_EQ(inputsOf("\x1b\x1b"), (Inputs{Stroke{Key::escape}, Stroke{Key::escape}}));
    EXPECT_EQ(inputsOf("\x1b\x1b[A"), (Inputs{Stroke{Key::escape}, Stroke{Key::up}}));
}

TEST(Decoder, TakesTheBeginningOfASequenceForAltWithItsLetter) {
    EXPECT_EQ(inputsOf("\x1b["), (Inputs{Typed{u"[", true}}));
    EXPECT_EQ(inputsOf("\x1bO"), (Inputs{Typed{u"O", true}}));
    EXPECT_EQ(inputsOf("\x1bP"), (Inputs{Typed{u"P", true}}));
    EXPECT_EQ(inputsOf("\x1b]"), (Inputs{Typed{u"]", true}}));
}

TEST(Decoder, SwallowsWhatIsUnknownWhole) {
    for (const std::string unknown : {"\x1b[99~",
                                      "\x1b[?1;2c",
                                      "\x1b[>0;276;0c",
                                      "\x1b[1;1R",
                                      "\x1b[I",
                                      "\x1b[2~",
                                      "\x1b[15;5~",
                                      "\x1b[?2026;1$y",
                                      "\x1b[1/z",
                                      "\x1bOz",
                                      "\x1b[201~",
                                      "\x1b]11;rgb:0000/0000/0000\x1b\\",
                                      "\x1b]0;title\a",
                                      "\x1bP1$r0m\x1b\\",
                                      "\x1b_G;OK\x1b\\",
                                      "\x1b[<0;1;1m",
                                      "\x1b[<35;4;4M",
                                      "\x1b[<1;1;1M",
                                      "\x1b[<2;1;1M",
                                      "\x1b[<32;4;4M",
                                      "\x1b[<66;1;1M",
                                      "\x1b[<67;1;1M",
                                      "\x1b[<128;1;1M",
                                      "\x1b[<0;1;0M",
                                      "\x1b[<0;0;1M",
                                      "\x1b[<0;0;0M",
                                      "\x1b[<;;M",
                                      "\x1b[99999999999999999999~",
                                      "\x1b\x7f",
                                      "\x1b\r",
                                      "\x1b\t",
                                      "\x02",
                                      "\x1c",
                                      "\x1f"}) {
        EXPECT_EQ(inputsOf(unknown + "y"), Inputs{Typed{u"y"}}) << testing::PrintToString(unknown);
    }
    EXPECT_EQ(inputsOf("\x1b[" + std::string(100000, '1') + "Ay"), Inputs{Typed{u"y"}});
}

TEST(Decoder, DropsHalfASequenceWhenTheNextKeyComes) {
    EXPECT_EQ(inputsOf("\x1b[1;\x1b[A"), Inputs{Stroke{Key::up}});
    EXPECT_EQ(inputsOf("\x1b[1;\ry"), (Inputs{Stroke{Key::enter}, Typed{u"y"}}));
    EXPECT_EQ(inputsOf("\x1b[1;\xC3\xA9"), Inputs{Typed{u"é"}});
    EXPECT_EQ(inputsOf("\x1b[1;\x7fy"), (Inputs{Stroke{Key::backspace}, Typed{u"y"}}));
    EXPECT_EQ(inputsOf("\x1b]0;title\x1b"
                       "a"),
              (Inputs{Typed{u"a", true}}));
    EXPECT_EQ(inputsOf("\xE0\xA4\x1b[A"), Inputs{Stroke{Key::up}});
}

TEST(Decoder, DropsBytesThatAreNoCharacter) {
    for (const std::string bad :
         {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xED\xA0\x80",
          "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xFE", "\xC3",
          "\xE0\xA4", "\xF0\x9F\x98", "\xC2\x9B", "\x1b\xFF", "\x1b\xC3"}) {
        EXPECT_EQ(inputsOf(bad + "y"), Inputs{Typed{u"y"}}) << testing::PrintToString(bad);
        EXPECT_EQ(inputsOf(bad), Inputs{}) << testing::PrintToString(bad);
        EXPECT_EQ(inputsOf(bad + "\xC3\xA9"), Inputs{Typed{u"é"}}) << testing::PrintToString(bad);
    }
    EXPECT_EQ(inputsOf("\xEF\xBF\xBD"), Inputs{Typed{u"\uFFFD"}});
}

TEST(Decoder, GivesTheCharactersOfAClusterTogether) {
    EXPECT_EQ(inputsOf("हिन्दी"), (Inputs{Typed{u"हि"}, Typed{u"न्"}, Typed{u"दी"}}));
    EXPECT_EQ(inputsOf("👩‍👧x"), (Inputs{Typed{u"👩‍👧"}, Typed{u"x"}}));
    EXPECT_EQ(inputsOf("e\x1b\xCC\x81"), (Inputs{Typed{u"e"}, Typed{u"\u0301", true}}));
}

TEST(Decoder, PrefersTheKeysOfTheTerminal) {
    const Decoder::Keys keys{{"\x1b"
                              "A",
                              Key::up},
                             {"\x1b[[X", Key::pageUp},
                             {"\x1b[5~", Key::help}};
    EXPECT_EQ(inputsOf("\x1b"
                       "A",
                       Decoder(keys)),
              Inputs{Stroke{Key::up}});
    EXPECT_EQ(inputsOf("\x1b[[Xy", Decoder(keys)), (Inputs{Stroke{Key::pageUp}, Typed{u"y"}}));
    EXPECT_EQ(inputsOf("\x1b[5~", Decoder(keys)), Inputs{Stroke{Key::help}});
    EXPECT_EQ(inputsOf("\x1b[6~", Decoder(keys)), Inputs{Stroke{Key::pageDown}});
    EXPECT_EQ(inputsOf("\x1b[5y~", Decoder(keys)), Inputs{Typed{u"~"}});
    const Decoder::Keys longer{{"\x1b"
                                "AB",
                                Key::up},
                               {"\x1bOAx", Key::down}};
    EXPECT_EQ(inputsOf("\x1b"
                       "AB",
                       Decoder(longer)),
              Inputs{Stroke{Key::up}});
    EXPECT_EQ(inputsOf("\x1b"
                       "A",
                       Decoder(longer)),
              (Inputs{Typed{u"A", true}}));
    EXPECT_EQ(inputsOf("\x1bOAx", Decoder(longer)), Inputs{Stroke{Key::down}});
}

TEST(Decoder, KnowsTheSequencesOfEveryTerminalWithItsOwnKeys) {
    for (const char *const type : {"xterm-256color", "screen", "tmux-256color", "linux", "vt100"}) {
        const auto keys = Capabilities::ofType(type).keys;
        for (const auto &[bytes, key] : keys) {
            EXPECT_EQ(inputsOf(bytes, Decoder(keys)), Inputs{Stroke{key}}) << type;
        }
        for (const Sequence &sequence : sequences) {
            EXPECT_EQ(inputsOf(sequence.bytes, Decoder(keys)), Inputs{sequence.input})
                << type << testing::PrintToString(sequence.bytes);
        }
    }
}

TEST(Decoder, TellsADoubleClickByItsTimeAndPlace) {
    Decoder decoder;
    using enum MouseEvent::Kind;
    const auto click = [&decoder](std::string_view bytes, Decoder::Time when) {
        decoder.take(bytes, when);
        const Inputs inputs = allOf(decoder);
        return inputs.size() == 1 ? std::get<MouseEvent>(inputs.front()).kind : wheelUp;
    };
    const std::string here = "\x1b[<0;5;3M\x1b[<0;5;3m";
    EXPECT_EQ(click(here, start), press);
    EXPECT_EQ(click(here, start + 400ms), doubleClick);
    EXPECT_EQ(click(here, start + 500ms), press);
    EXPECT_EQ(click(here, start + 901ms), press);
    EXPECT_EQ(click("\x1b[<0;6;3M", start + 902ms), press);
    EXPECT_EQ(click("\x1b[<0;6;3M", start + 903ms), doubleClick);
}

TEST(Paste, WaitsForItsEndHoweverLongItTakes) {
    Decoder decoder;
    decoder.take("\x1b[200~abc", start);
    EXPECT_FALSE(decoder.isWaiting());
    decoder.pause(start + 59min);
    EXPECT_EQ(decoder.next(), std::nullopt);
    decoder.take("\rdef\x1b", start + 1h);
    EXPECT_TRUE(decoder.isWaiting());
    decoder.pause(start + 1h + 999ms);
    EXPECT_EQ(decoder.next(), std::nullopt);
    decoder.take("[201~", start + 1h + 999ms);
    EXPECT_EQ(allOf(decoder), Inputs{Pasted{u"abc\ndef"}});
}

TEST(Paste, WhoseEndGotLostIsEndedWithEsc) {
    Decoder decoder;
    decoder.take("\x1b[200~abc", start);
    decoder.take("\x1b", start + 1s);
    decoder.pause(start + 2s);
    EXPECT_EQ(allOf(decoder), Inputs{Pasted{u"abc"}});
    EXPECT_FALSE(decoder.isWaiting());
    decoder.take("y", start + 3s);
    EXPECT_EQ(allOf(decoder), Inputs{Typed{u"y"}});
}

TEST(Paste, CanBeLarge) {
    const std::string text(std::size_t{10} << 20, 'x');
    const Inputs inputs = inputsOf("\x1b[200~" + text + "\x1b[201~");
    ASSERT_EQ(inputs.size(), 1U);
    EXPECT_EQ(std::get<Pasted>(inputs.front()).text, kvex::fromUtf8(text));
}

TEST(Paste, IsCutBetweenCharacters) {
    std::string text;
    while (text.size() < PastedText::longest + 10) {
        text += "ह";
    }
    const Inputs inputs = inputsOf("\x1b[200~" + text + "\x1b[201~y");
    ASSERT_EQ(inputs.size(), 2U);
    const std::u16string pasted = std::get<Pasted>(inputs.front()).text;
    EXPECT_EQ(pasted.size(), PastedText::longest / 3);
    EXPECT_EQ(pasted.find_first_not_of(u'ह'), std::u16string::npos);
    EXPECT_EQ(inputs.back(), Input(Typed{u"y"}));
}

TEST(Decoder, SurvivesAFloodOfAnyBytes) {
    std::mt19937 random(3); // NOLINT: the same bytes in each run.
    Decoder decoder(Capabilities::ofType("xterm-256color").keys);
    std::string piece(4096, '\0');
    std::size_t inputs = 0;
    for (std::size_t sent = 0; sent < (std::size_t{10} << 20); sent += piece.size()) {
        for (char &byte : piece) {
            byte = static_cast<char>(random());
        }
        decoder.take(piece, start);
        inputs += allOf(decoder).size();
    }
    EXPECT_GT(inputs, 1000U);
    decoder.pause(start + 2s);
    decoder.take("\x1b[201~", start + 2s);
    (void)allOf(decoder);
    decoder.take("y", start + 3s);
    EXPECT_EQ(allOf(decoder), Inputs{Typed{u"y"}});
}

} // namespace
