// The types and functions of the component model. Interfaces derive from IUnknown and have pure
// virtual functions only. Results are HRESULTs, texts are BSTRs. The compiler lays out an interface
// as a class without a virtual destructor. The Component Object Model uses the same layout.
//
// Who owns what:
// - A caller that gets an object owns one reference, and gives it back with Release.
// - A callee that keeps an argument longer than the call takes its own reference with AddRef.
// - A text that is passed by value belongs to the caller. The callee copies what it keeps.
// - A text that a call stores in `*text` belongs to the caller, who frees it with SysFreeString.
// - A text that is passed by reference belongs to the caller before and after the call. The callee
//   may free it and store another one in its place.
//
// No call throws. Unless a call says otherwise, it stores null or 0 when it fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

using HRESULT = std::int32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
/// A text that stores its length, so it may contain NUL characters. A NUL follows it. A null
/// pointer means "".
using BSTR = char16_t *;
/// -1 is true, 0 is false.
using VARIANT_BOOL = std::int16_t;
inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT hresultOf(std::uint32_t bits) {
    return static_cast<HRESULT>(bits);
}
inline constexpr HRESULT E_NOINTERFACE = hresultOf(0x80004002U);
inline constexpr HRESULT E_POINTER = hresultOf(0x80004003U);
inline constexpr HRESULT E_FAIL = hresultOf(0x80004005U);
inline constexpr HRESULT E_UNEXPECTED = hresultOf(0x8000FFFFU);
inline constexpr HRESULT E_ACCESSDENIED = hresultOf(0x80070005U);
inline constexpr HRESULT E_OUTOFMEMORY = hresultOf(0x8007000EU);
inline constexpr HRESULT E_INVALIDARG = hresultOf(0x80070057U);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = hresultOf(0x80040110U);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = hresultOf(0x80040111U);
inline constexpr HRESULT REGDB_E_CLASSNOTREG = hresultOf(0x80040154U);
inline constexpr HRESULT CO_E_CLASSSTRING = hresultOf(0x800401F3U);
inline constexpr HRESULT CO_E_DLLNOTFOUND = hresultOf(0x800401F8U);
inline constexpr HRESULT CO_E_ERRORINDLL = hresultOf(0x800401F9U);
inline constexpr HRESULT CO_E_OBJNOTREG = hresultOf(0x800401FBU);
inline constexpr HRESULT RPC_E_WRONG_THREAD = hresultOf(0x8001010EU);
inline constexpr HRESULT SELFREG_E_CLASS = hresultOf(0x80040201U);

inline constexpr bool SUCCEEDED(HRESULT result) {
    return result >= 0;
}
inline constexpr bool FAILED(HRESULT result) {
    return result < 0;
}

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];

    friend bool operator==(const GUID &left, const GUID &right) noexcept {
        return std::memcmp(&left, &right, sizeof(GUID)) == 0;
    }
    friend bool operator!=(const GUID &left, const GUID &right) noexcept {
        return !(left == right);
    }
};
using CLSID = GUID;
using IID = GUID;

struct IUnknown {
    static constexpr IID iid{0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    /// Stores the interface in `*object` and adds a reference. Fails with E_NOINTERFACE when the
    /// object does not have it; `*object` is null then. Fails with E_POINTER for a null `object`.
    virtual HRESULT QueryInterface(const IID &interfaceId, void **object) noexcept = 0;
    /// Adds a reference, and gives the new count. Any thread may call it.
    virtual ULONG AddRef() noexcept = 0;
    /// Gives a reference back, and gives the new count. The object ends with its last reference.
    virtual ULONG Release() noexcept = 0;

protected:
    ~IUnknown() = default;
};

struct IClassFactory : IUnknown {
    static constexpr IID iid{0x00000001, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    /// Creates an object of the class. Fails with CLASS_E_NOAGGREGATION when `outer` is not null.
    /// An exception of the object's constructor becomes a failed result. After a failure `*object`
    /// is null.
    virtual HRESULT CreateInstance(IUnknown *outer, const IID &interfaceId,
                                   void **object) noexcept = 0;
    /// Adds or removes a lock. A server is not unloaded while it has locks.
    virtual HRESULT LockServer(bool lock) noexcept = 0;

protected:
    ~IClassFactory() = default;
};

// The functions of the component model. On Linux the class server library implements them, on
// Windows the system does. Any number of threads may call them at once.
#if defined(KVEX_CLASS_SERVER_BUILD)
#define KVEX_CLASS_SERVER_API __attribute__((visibility("default")))
#else
#define KVEX_CLASS_SERVER_API
#endif
extern "C" {
/// Allocates a text of `length` characters and copies `text`; a null `text` gives NUL characters.
/// Null when there is no memory.
KVEX_CLASS_SERVER_API BSTR SysAllocStringLen(const char16_t *text, std::uint32_t length) noexcept;
/// `text` may be null.
KVEX_CLASS_SERVER_API void SysFreeString(BSTR text) noexcept;
/// The length in characters; 0 for a null pointer.
KVEX_CLASS_SERVER_API std::uint32_t SysStringLen(BSTR text) noexcept;

/// From now on this process gets the class from `classObject`, an IClassFactory, even when a server
/// of the class is registered. The last one that was registered counts. The class server keeps a
/// reference until CoRevokeClassObject gets `*registration`, which is never 0. Fails with E_POINTER
/// for a null `registration`, with E_INVALIDARG for a null `classObject`, and with E_OUTOFMEMORY.
KVEX_CLASS_SERVER_API HRESULT CoRegisterClassObject(const CLSID &classId, IUnknown *classObject,
                                                    std::uint32_t *registration) noexcept;
/// Fails with CO_E_OBJNOTREG for an unknown registration.
KVEX_CLASS_SERVER_API HRESULT CoRevokeClassObject(std::uint32_t registration) noexcept;
/// Gives the class object: this process's own, or else that of the server that CoLoadServer named,
/// or else that of the registered server. Loads the server when it must. The user's registration
/// counts before the system's. Fails with REGDB_E_CLASSNOTREG when the class is unknown. Fails with
/// CO_E_DLLNOTFOUND when the server's file cannot be loaded, and with CO_E_ERRORINDLL when that
/// file is no server. Any other failure is the server's own.
KVEX_CLASS_SERVER_API HRESULT CoGetClassObject(const CLSID &classId, const IID &interfaceId,
                                               void **object) noexcept;
/// Gets the class object and calls its CreateInstance. Fails as either of them does.
KVEX_CLASS_SERVER_API HRESULT CoCreateInstance(const CLSID &classId, IUnknown *outer,
                                               const IID &interfaceId, void **object) noexcept;
/// Gives the id of the registered class with this name. The case of ASCII letters does not matter.
/// Fails with CO_E_CLASSSTRING for a name that is not registered.
KVEX_CLASS_SERVER_API HRESULT CLSIDFromProgID(const char16_t *programId, CLSID *classId) noexcept;
/// Unloads every server whose DllCanUnloadNow returns S_OK. Do not call it while another thread may
/// release a server's last object: that thread would run code that is no longer there.
KVEX_CLASS_SERVER_API void CoFreeUnusedLibraries() noexcept;
}
