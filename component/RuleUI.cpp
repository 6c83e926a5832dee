// The class RuleUI, and the entry points through which the class server reaches it.
#include "kvex/RuleUI.h"

#include "adapters/classserver/server/Guard.h"
#include "adapters/classserver/server/InProcessServer.h"
#include "adapters/classserver/server/ServerObject.h"
#include "component/Composition.h"
#include "component/RuleStrings.h"
#include "component/SessionOwner.h"
#include "platform/OwnerThread.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <iostream>

namespace kvex {
namespace {

class RuleUI final : public ServerObject<IRuleUI, IRuleReader, IRuleStrings> {
public:
    HRESULT ShowRules(BSTR userId, BSTR ruleId, LONG *result) noexcept override {
        if (result == nullptr) {
            return E_POINTER;
        }
        *result = 0;
        return onOwnThread([&] {
            *result =
                session_.ShowRules(std::u16string(viewOf(userId)), std::u16string(viewOf(ruleId)));
            return S_OK;
        });
    }

    HRESULT OpenRules() noexcept override {
        return onOwnThread([&] { return session_.OpenRules() ? S_OK : E_FAIL; });
    }

    HRESULT DescribeRule(BSTR ruleId, IDescriptionSink *sink) noexcept override {
        if (sink == nullptr) {
            return E_POINTER;
        }
        return onOwnThread([&]() -> HRESULT {
            if (!hasOpenSession()) {
                return E_UNEXPECTED;
            }
            const auto description = describeRule(std::u16string(viewOf(ruleId)));
            if (!description) {
                return S_FALSE;
            }
            for (const TextRun &run : *description) {
                const Bstr text(run.text);
                const HRESULT written = sink->Write(text.get(), static_cast<LONG>(run.colour));
                if (FAILED(written)) {
                    return written;
                }
            }
            return S_OK;
        });
    }

    HRESULT Read(BSTR queryParam, BSTR actionParam, IRuleFieldSink *sink) noexcept override {
        return rule_strings::read(queryParam, actionParam, sink);
    }

    HRESULT Write(const RuleField *fields, ULONG count, BSTR *queryParam,
                  BSTR *actionParam) noexcept override {
        return rule_strings::write(fields, count, queryParam, actionParam);
    }

    HRESULT Check(BSTR name, VARIANT_BOOL nameIsTaken, const RuleField *fields, ULONG count,
                  BSTR *message) noexcept override {
        return rule_strings::check(name, nameIsTaken, fields, count, message);
    }

    HRESULT GetNameKeys(BSTR name, BSTR *typed, BSTR *stored) noexcept override {
        return rule_strings::getNameKeys(name, typed, stored);
    }

private:
    /// A release has no result, so a failure goes to the diagnostic stream.
    ~RuleUI() override {
        try {
            if (thread_.isCurrent()) {
                session_.release();
            } else {
                tellOwner("released");
            }
        } catch (...) {
            std::cerr << "KVEXMessageRules: the session could not be closed: "
                      << toUtf8(visible(fromUtf8(Error::current().what()))) << '\n';
        }
    }

    /// Runs `body` as guarded does, unless another thread calls: the session is not there.
    template <class Body> HRESULT onOwnThread(Body &&body) noexcept {
        return guarded([&]() -> HRESULT {
            if (!thread_.isCurrent()) {
                tellOwner("called");
                return RPC_E_WRONG_THREAD;
            }
            return body();
        });
    }

    /// The utility object belongs to the session, so this goes to the diagnostic stream.
    void tellOwner(std::string_view done) const {
        std::cerr << "KVEXMessageRules: RuleUI was " << done << " from "
                  << toUtf8(visible(OwnerThread().text())) << ". The object belongs to "
                  << toUtf8(visible(thread_.text()))
                  << ". Create, call and release it on one thread.\n";
    }

    SessionOwner session_{composition()};
    OwnerThread thread_;
};

constexpr ServedClass classes[] = {
    {CLSID_RuleUI, RuleUIProgramId, u"The editor of message rules",
     []() -> ComPointer<IUnknown> { return makeComObject<RuleUI>().as<IUnknown>(); }},
};

} // namespace
} // namespace kvex

extern "C" {

KVEX_SERVER_ENTRY_POINT HRESULT DllGetClassObject(const CLSID &classId, const IID &interfaceId,
                                                  void **object) {
    return kvex::in_process_server::getClassObject(kvex::classes, classId, interfaceId, object);
}

KVEX_SERVER_ENTRY_POINT HRESULT DllCanUnloadNow() {
    return kvex::in_process_server::canUnloadNow();
}

KVEX_SERVER_ENTRY_POINT HRESULT DllRegisterServer() {
    return kvex::in_process_server::registerServer(kvex::classes);
}

KVEX_SERVER_ENTRY_POINT HRESULT DllUnregisterServer() {
    return kvex::in_process_server::unregisterServer(kvex::classes);
}
}
