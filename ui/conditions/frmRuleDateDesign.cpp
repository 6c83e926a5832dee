#include "ui/conditions/frmRuleDateDesign.h"

#include "platform/controls/DesignPieces.h"

namespace kvex {
namespace {

ControlDesign datePicker(std::u16string name, std::u16string accessibleName) {
    return {.kind = ControlKind::datePicker,
            .name = std::move(name),
            .accessibleName = std::move(accessibleName),
            .format = u"dd/MM/yyy"};
}

ControlDesign timePicker(std::u16string name, std::u16string accessibleName,
                         std::u16string disabledHint) {
    return {.kind = ControlKind::timePicker,
            .name = std::move(name),
            .disabledHint = std::move(disabledHint),
            .accessibleName = std::move(accessibleName),
            .format = u"HH:mm:ss"};
}

ControlDesign lastSecondOfTheDay(ControlDesign picker) {
    picker.hour = 23;
    picker.minute = 59;
    picker.second = 59;
    return picker;
}

} // namespace

WindowDesign frmRuleDateDesign() {
    using namespace design;
    return {
        .name = u"frmRuleDate",
        .caption = u"Select Date/Time Range",
        .controls =
            {
                {.kind = ControlKind::frame, .name = u"Frame1"},
                label(u"Label1", u"Message is received between", u"FromDate"),
                datePicker(u"FromDate", u"From Date"),
                timePicker(u"FromTime", u"From Time", u"Tick the From Date first"),
                label(u"lblTime", u"and", u"ToDate"),
                datePicker(u"ToDate", u"To Date"),
                lastSecondOfTheDay(timePicker(u"ToTime", u"To Time", u"Tick the To Date first")),
                okButton(),
                cancelButton(),
            },
        .layout = column({
            scrolling({
                placeFrame(u"Frame1",
                           {
                               place(u"Label1"),
                               row({place(u"FromDate"), place(u"FromTime"), spring()}),
                               place(u"lblTime"),
                               row({place(u"ToDate"), place(u"ToTime"), spring()}),
                           }),
                spring(),
            }),
            row({spring(), place(u"cmdOK"), place(u"cmdCancel")}),
        }),
    };
}

} // namespace kvex
