// A component of another version of the kit: its description of every rule is "version 2". Like the
// real one, it needs a utility object.
#include "adapters/classserver/server/Guard.h"
#include "adapters/classserver/server/InProcessServer.h"
#include "kvex/HostSuite.h"
#include "kvex/RuleUI.h"
#include "platform/Error.h"

namespace {

using namespace kvex;

class OtherRuleUI final : public ServerObject<IRuleReader> {
public:
    OtherRuleUI() {
        if (FAILED(createInstance(CLSID_Utility, utility_))) {
            throw Error(error_number::cannotCreateObject);
        }
    }
    HRESULT OpenRules() noexcept override { return S_OK; }
    HRESULT DescribeRule(BSTR /*ruleId*/, IDescriptionSink *sink) noexcept override {
        return guarded([&] { return sink->Write(Bstr(u"version 2").get(), 0); });
    }

private:
    ~OtherRuleUI() override = default;

    ComPointer<IUtility> utility_;
};

constexpr ServedClass classes[] = {
    {CLSID_RuleUI, RuleUIProgramId, u"Another version",
     []() -> ComPointer<IUnknown> { return makeComObject<OtherRuleUI>(); }},
};

} // namespace

extern "C" {
KVEX_SERVER_ENTRY_POINT HRESULT DllGetClassObject(const CLSID &classId, const IID &interfaceId,
                                                  void **object) {
    return in_process_server::getClassObject(classes, classId, interfaceId, object);
}
KVEX_SERVER_ENTRY_POINT HRESULT DllCanUnloadNow() {
    return in_process_server::canUnloadNow();
}
KVEX_SERVER_ENTRY_POINT HRESULT DllRegisterServer() {
    return in_process_server::registerServer(classes);
}
KVEX_SERVER_ENTRY_POINT HRESULT DllUnregisterServer() {
    return in_process_server::unregisterServer(classes);
}
}
