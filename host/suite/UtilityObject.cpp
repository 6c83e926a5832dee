#include "host/suite/UtilityObject.h"

#include "adapters/classserver/server/Guard.h"
#include "host/suite/Advice.h"
#include "host/suite/ShownText.h"
#include "host/suite/SuiteState.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"
#include "platform/controls/Toolkit.h"

#include <iostream>

namespace kvex::host {
namespace {

HRESULT give(const std::u16string &text, BSTR *target) noexcept {
    if (target == nullptr) {
        return E_POINTER;
    }
    *target = nullptr;
    return guarded([&] {
        *target = Bstr(text).detach();
        return S_OK;
    });
}

std::u16string headlineOf(HelpContext context) {
    switch (context) {
    case HelpContext::ruleReadInPart:
        return u"Not all of this rule could be read.";
    case HelpContext::listEndsEarly:
        return u"Not everything is listed.";
    case HelpContext::newerSchema:
        return u"The rules can only be read.";
    case HelpContext::ruleNotStored:
    case HelpContext::orderNotStored:
        return u"OK ended with an error.";
    case HelpContext::ruleNotRemoved:
        return u"Remove ended with an error.";
    default:
        return u"The database reported an error.";
    }
}

/// The component meets these errors each time it reads the same again, so one message is enough.
bool isToldOnce(HelpContext context) {
    return context == HelpContext::ruleReadInPart || context == HelpContext::listEndsEarly;
}

std::u16string userText(const Error &error) {
    const std::filesystem::path &file = suiteState().log.lastFile();
    std::u16string text = headlineOf(error.helpContext());
    text.append(u"\r\n\r\n").append(withoutPasswords(withAdvice(error, Place::rulesWindows)));
    if (!file.empty()) {
        text += u"\r\n\r\nThe error is logged in " + fromUtf8(file.string()) + u".";
    }
    return text;
}

} // namespace

HRESULT UtilityObject::GetConnectionString(BSTR *connectionString) noexcept {
    return give(suiteState().connectionString, connectionString);
}

HRESULT UtilityObject::GetSecondText(BSTR *text) noexcept {
    return give(suiteState().secondText, text);
}

HRESULT UtilityObject::WriteErrorLog(BSTR *logFile, ErrorRecord *error, BSTR text,
                                     LONG /*reserved*/, VARIANT_BOOL *flag, LONG *output) noexcept {
    if (logFile == nullptr || error == nullptr) {
        return E_POINTER;
    }
    return guarded([&] {
        if (output != nullptr) {
            *output = 0;
        }
        const Error entry(error->number, std::u16string(viewOf(error->description)),
                          std::u16string(viewOf(error->source)),
                          static_cast<HelpContext>(error->helpContext));
        logEntry(viewOf(*logFile), viewOf(text), &entry);
        if (entry.concernsUser() && (flag == nullptr || *flag != VARIANT_FALSE)) {
            tellUser(entry);
        }
        return S_OK;
    });
}

HRESULT UtilityObject::ReportMessage(BSTR *logFile, BSTR text, VARIANT_BOOL /*first*/,
                                     VARIANT_BOOL /*second*/) noexcept {
    if (logFile == nullptr) {
        return E_POINTER;
    }
    return guarded([&] {
        logEntry(viewOf(*logFile), viewOf(text), nullptr);
        return S_OK;
    });
}

HRESULT UtilityObject::ShowMessageBox(BSTR text, LONG style, LONG *result) noexcept {
    if (result == nullptr) {
        return E_POINTER;
    }
    return guarded([&] {
        *result = showMessage(std::u16string(viewOf(text)), style);
        return S_OK;
    });
}

void UtilityObject::tellUser(const Error &error) {
    if (isToldOnce(error.helpContext()) && !told_.insert(error.description()).second) {
        return;
    }
    const std::u16string text = userText(error);
    try {
        showMessage(text, message_box::exclamation);
    } catch (const std::exception &) {
        std::cerr << toUtf8(harmlessLines(text)) << std::endl;
    }
}

} // namespace kvex::host
