// A design that contradicts itself is refused.
#include "adapters/controls/DesignCheck.h"

#include "platform/Text.h"
#include "tests/support/RaisedError.h"
#include "tests/toolkit/Designs.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

using enum ControlKind;

/// A label with its box, a list with its pictures, a hidden button, and two buttons in a frame.
WindowDesign sound() {
    ControlDesign label = control(ControlKind::label, u"lbl", u"&Name");
    label.buddy = u"txt";
    ControlDesign list = control(listView, u"lvw");
    list.imageList = u"img";
    ControlDesign ok = control(commandButton, u"cmdOK");
    ok.isDefault = true;
    ControlDesign cancel = control(commandButton, u"cmdCancel");
    cancel.isCancel = true;
    return {.name = u"frmTest",
            .caption = u"Test",
            .controls = {label, control(textBox, u"txt"), list, control(imageList, u"img"),
                         hidden(control(commandButton, u"cmdHidden")), control(frame, u"fra"), ok,
                         cancel},
            .layout = column({row({place(u"lbl"), place(u"txt")}), place(u"lvw"),
                              placeFrame(u"fra", {place(u"cmdOK"), place(u"cmdCancel")})})};
}

ControlDesign &named(WindowDesign &design, std::u16string_view name) {
    for (ControlDesign &control : design.controls) {
        if (control.name == name) {
            return control;
        }
    }
    throw Error(error_number::controlNotFound);
}

/// What is wrong with the design, "" when it is sound.
std::string faultOf(const WindowDesign &design) {
    const auto error = test::raisedBy([&] { controls::checkDesign(design); });
    if (!error) {
        return {};
    }
    EXPECT_EQ(error->number(), error_number::invalidCall);
    return toUtf8(error->description());
}

TEST(DesignCheck, ASoundDesignPasses) {
    EXPECT_EQ(faultOf(sound()), "");
}

TEST(DesignCheck, AHiddenControlMayBePlacedToo) {
    WindowDesign design = sound();
    design.layout.pieces.push_back(place(u"cmdHidden"));
    EXPECT_EQ(faultOf(design), "");
}

TEST(DesignCheck, EveryFaultIsNamedWithItsWindow) {
    struct Case {
        const char *fault;
        void (*spoil)(WindowDesign &design);
    };
    for (const auto &[fault, spoil] : {
             Case{"a control has no name",
                  [](WindowDesign &design) { named(design, u"lvw").name.clear(); }},
             Case{"lbl describes cmdNone, which is no control",
                  [](WindowDesign &design) { named(design, u"lbl").describes = u"cmdNone"; }},
             Case{"two controls are named txt",
                  [](WindowDesign &design) { design.controls.push_back(design.controls[1]); }},
             Case{"txt has no place",
                  [](WindowDesign &design) { design.layout.pieces[0].pieces.pop_back(); }},
             Case{"cmdHidden has no place",
                  [](WindowDesign &design) { named(design, u"cmdHidden").visible = true; }},
             Case{"fra has no place",
                  [](WindowDesign &design) {
                      design.layout.pieces[2] = row({place(u"cmdOK"), place(u"cmdCancel")});
                  }},
             Case{"cmdNone is placed, but no control",
                  [](WindowDesign &design) { design.layout.pieces.push_back(place(u"cmdNone")); }},
             Case{"img is placed, but no control",
                  [](WindowDesign &design) { design.layout.pieces.push_back(place(u"img")); }},
             Case{"cmdOK is placed twice",
                  [](WindowDesign &design) { design.layout.pieces.push_back(place(u"cmdOK")); }},
             Case{"fra is placed twice",
                  [](WindowDesign &design) { design.layout.pieces.push_back(place(u"fra")); }},
             Case{"lbl has the buddy txtNone, which is no control",
                  [](WindowDesign &design) { named(design, u"lbl").buddy = u"txtNone"; }},
             Case{"lbl has the buddy img, which is no control",
                  [](WindowDesign &design) { named(design, u"lbl").buddy = u"img"; }},
             Case{"lvw has the image list imgNone, which is none",
                  [](WindowDesign &design) { named(design, u"lvw").imageList = u"imgNone"; }},
             Case{"lvw has the image list txt, which is none",
                  [](WindowDesign &design) { named(design, u"lvw").imageList = u"txt"; }},
             Case{"two buttons are default",
                  [](WindowDesign &design) { named(design, u"cmdCancel").isDefault = true; }},
             Case{"two buttons are cancel",
                  [](WindowDesign &design) { named(design, u"cmdOK").isCancel = true; }},
         }) {
        WindowDesign design = sound();
        spoil(design);
        EXPECT_EQ(faultOf(design), std::string("frmTest: ") + fault);
    }
}

} // namespace
} // namespace kvex::test
