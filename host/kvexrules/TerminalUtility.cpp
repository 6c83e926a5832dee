#include "host/kvexrules/TerminalUtility.h"

#include "adapters/classserver/server/ComObject.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "platform/Text.h"
#include "platform/controls/Toolkit.h"

namespace kvex::host {

std::int32_t TerminalUtility::showMessage(const std::u16string &text, std::int32_t style) {
    complain(toUtf8(text));
    return style == message_box::yesNo ? message_box::no : message_box::ok;
}

TerminalUtilityRegistration::TerminalUtilityRegistration() {
    const auto factory = makeComObject<ClassFactory>(
        []() -> ComPointer<IUnknown> { return makeComObject<TerminalUtility>(); });
    require(CoRegisterClassObject(CLSID_Utility, factory.get(), &registration_),
            "The class server does not work", "Install kvexrules again.");
}

TerminalUtilityRegistration::~TerminalUtilityRegistration() {
    CoRevokeClassObject(registration_);
}

} // namespace kvex::host
