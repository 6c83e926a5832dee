// The library KVEXHostSuite: the table of its classes, and the entry points that serve them.
#include "adapters/classserver/server/Guard.h"
#include "adapters/classserver/server/InProcessServer.h"
#include "adapters/toolkits/LoadedToolkit.h"
#include "host/addressbook/ManageContacts.h"
#include "host/suite/Advice.h"
#include "host/suite/SuiteState.h"
#include "host/suite/UtilityObject.h"
#include "kvex/SuiteConfiguration.h"
#include "platform/Text.h"

#include <array>

namespace kvex::host {
namespace {

class SuiteConfiguration final : public ServerObject<ISuiteConfiguration> {
public:
    HRESULT Configure(BSTR connectionString, BSTR secondText, BSTR logFile) noexcept final {
        return guarded([&] {
            suiteState() = {std::u16string(viewOf(connectionString)),
                            std::u16string(viewOf(secondText)), ErrorLog(toUtf8(viewOf(logFile)))};
            return S_OK;
        });
    }

    HRESULT GetLastError(BSTR *logFile, BSTR *description, LONG *number) noexcept final {
        if (logFile == nullptr || description == nullptr || number == nullptr) {
            return E_POINTER;
        }
        *number = 0;
        *logFile = nullptr;
        *description = nullptr;
        return guarded([&] {
            const SuiteState &state = suiteState();
            if (!state.lastError) {
                return S_FALSE;
            }
            Bstr file(fromUtf8(state.log.lastFile().string()));
            const Error &error = state.lastError->error;
            *description = Bstr(withAdvice(error, Place::terminal)).detach();
            *number = error.number();
            *logFile = file.detach();
            return S_OK;
        });
    }

private:
    ~SuiteConfiguration() final = default;
};

/// The toolkit of this library's folder.
Toolkit &toolkit() {
    static toolkits::LoadedToolkit loaded(modulePath().parent_path());
    return loaded;
}

/// Shows messages in a box with the title "SMS Rules".
class MessageBoxUtility final : public UtilityObject {
private:
    ~MessageBoxUtility() final = default;

    std::int32_t showMessage(const std::u16string &text, std::int32_t style) final {
        return toolkit().showMessageBox(u"SMS Rules", text, style);
    }
};

template <class Class> ComPointer<IUnknown> create() {
    return makeComObject<Class>();
}

ComPointer<IUnknown> createAddressBook() {
    return makeComObject<ManageContacts>(toolkit());
}

constexpr std::array classes{
    ServedClass{CLSID_SuiteConfiguration, u"KVEXHostSuite.SuiteConfiguration",
                u"Configuration of the SMS server's host suite", create<SuiteConfiguration>},
    ServedClass{CLSID_Utility, u"KVEXHostSuite.Utility",
                u"Utility object of the SMS server's host suite", create<MessageBoxUtility>},
    ServedClass{CLSID_ManageContacts, u"KVEXHostSuite.ManageContacts",
                u"Address book of the SMS server's host suite", createAddressBook},
};

} // namespace
} // namespace kvex::host

namespace server = kvex::in_process_server;

extern "C" {
KVEX_SERVER_ENTRY_POINT HRESULT DllGetClassObject(const CLSID &classId, const IID &interfaceId,
                                                  void **object) {
    return server::getClassObject(kvex::host::classes, classId, interfaceId, object);
}
KVEX_SERVER_ENTRY_POINT HRESULT DllCanUnloadNow() {
    return server::canUnloadNow();
}
KVEX_SERVER_ENTRY_POINT HRESULT DllRegisterServer() {
    return server::registerServer(kvex::host::classes);
}
KVEX_SERVER_ENTRY_POINT HRESULT DllUnregisterServer() {
    return server::unregisterServer(kvex::host::classes);
}
}
