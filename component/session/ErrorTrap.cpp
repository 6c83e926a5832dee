#include "component/session/ErrorTrap.h"

#include "component/session/Session.h"

namespace kvex {

void logCurrentError(std::u16string_view sub, std::u16string_view module) {
    const Error error = Error::current();
    std::u16string text = u"KVEXMessageRules: Error occured. Sub: ";
    text.append(sub).append(u", Module: ").append(module);
    session().objUtility->writeErrorLog(session().strLogFile, error, text, 0, -1);
}

} // namespace kvex
