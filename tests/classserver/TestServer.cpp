// A loadable server with one class that works and some that cannot be created.
#include "tests/classserver/TestServer.h"

#include "adapters/classserver/server/InProcessServer.h"
#include "platform/Error.h"

#include <new>

namespace {

using kvex::ComPointer;

class Counter final : public kvex::ServerObject<ICounter, INamed> {
public:
    HRESULT Next(LONG *number) noexcept final {
        *number = ++last_;
        return S_OK;
    }
    HRESULT GetName(BSTR *name) noexcept final {
        constexpr std::u16string_view text = u"counter";
        *name = SysAllocStringLen(text.data(), static_cast<std::uint32_t>(text.size()));
        return *name == nullptr ? E_OUTOFMEMORY : S_OK;
    }

private:
    ~Counter() final = default;

    LONG last_ = 0;
};

/// Fails after the base class was constructed and counted.
template <auto Raise> class Failing final : public kvex::ServerObject<ICounter> {
public:
    Failing() { Raise(); }
    HRESULT Next(LONG *) noexcept final { return E_UNEXPECTED; }

private:
    ~Failing() final = default;
};

void cannotCreate() {
    throw kvex::Error(kvex::error_number::cannotCreateObject);
}
void outOfMemory() {
    throw std::bad_alloc();
}
void unexpected() {
    throw 1;
}

ComPointer<IUnknown> createCounter() {
    return kvex::makeComObject<Counter>().as<IUnknown>();
}
template <auto Raise> ComPointer<IUnknown> createFailing() {
    return kvex::makeComObject<Failing<Raise>>();
}

constexpr kvex::ServedClass classes[] = {
    {CLSID_Counter, u"", u"Counts", createCounter},
    {CLSID_RegisteredCounter, CounterProgramId, u"Counts", createCounter},
    {CLSID_CannotCreate, u"KVEXTest.CannotCreate", u"Fails", createFailing<cannotCreate>},
    {CLSID_OutOfMemory, u"KVEXTest.OutOfMemory", u"Fails", createFailing<outOfMemory>},
    {CLSID_Unexpected, u"KVEXTest.Unexpected", u"Fails", createFailing<unexpected>},
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
