// The entry points of the component as a loadable server. Each only forwards.
#include "adapters/classserver/server/InProcessServer.h"
#include "component/RuleUI.h"
#include "component/RuleUIObject.h"

namespace {

constexpr kvex::ServedClass classes[] = {
    {CLSID_RuleUI, RuleUIProgramId, u"The editor of message rules", kvex::createRuleUI},
};

} // namespace

extern "C" {

KVEX_SERVER_ENTRY_POINT HRESULT DllGetClassObject(const CLSID &classId, const IID &interfaceId,
                                                  void **object) {
    return kvex::in_process_server::getClassObject(classes, classId, interfaceId, object);
}

KVEX_SERVER_ENTRY_POINT HRESULT DllCanUnloadNow() {
    return kvex::in_process_server::canUnloadNow();
}

KVEX_SERVER_ENTRY_POINT HRESULT DllRegisterServer() {
    return kvex::in_process_server::registerServer(classes);
}

KVEX_SERVER_ENTRY_POINT HRESULT DllUnregisterServer() {
    return kvex::in_process_server::unregisterServer(classes);
}
}
