// The component model's types: interfaces of pure virtual functions on IUnknown, results as
// HRESULT, texts as BSTR. The layout of an interface is the Itanium or system C++ ABI's of a class
// with only virtual functions and no virtual destructor, as in the Component Object Model.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

using HRESULT = std::int32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
/// A text that carries its length: NUL characters may stand in it, and one follows it. Null is "".
using BSTR = char16_t *;
/// True is -1, false 0.
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
};
using CLSID = GUID;
using IID = GUID;

struct IUnknown {
    static constexpr IID iid{0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    /// `*object` is nulled first; E_NOINTERFACE leaves it null, E_POINTER when `object` is null.
    virtual HRESULT QueryInterface(const IID &interfaceId, void **object) noexcept = 0;
    virtual ULONG AddRef() noexcept = 0;
    virtual ULONG Release() noexcept = 0;

protected:
    ~IUnknown() = default;
};

struct IClassFactory : IUnknown {
    static constexpr IID iid{0x00000001, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    /// A new object of the class. `*object` is nulled first. CLASS_E_NOAGGREGATION when `outer`
    /// is not null; what the object's constructor raises comes back as a failed result.
    virtual HRESULT CreateInstance(IUnknown *outer, const IID &interfaceId,
                                   void **object) noexcept = 0;
    /// A locked server is not unloaded; locks count.
    virtual HRESULT LockServer(bool lock) noexcept = 0;

protected:
    ~IClassFactory() = default;
};

/// What a loadable server exports, by these names, with C linkage.
extern "C" {
using DllGetClassObjectFunction = HRESULT(const CLSID &classId, const IID &interfaceId,
                                          void **object);
using DllCanUnloadNowFunction = HRESULT();
using DllRegisterServerFunction = HRESULT();
using DllUnregisterServerFunction = HRESULT();
}

/// The platform's part. On Linux the class server library implements it, on Windows the system.
#if defined(KVEX_CLASS_SERVER_BUILD)
#define KVEX_CLASS_SERVER_API __attribute__((visibility("default")))
#else
#define KVEX_CLASS_SERVER_API
#endif
extern "C" {
/// A new text of `length` characters; null when there is no memory. `text` may be null: zeros.
KVEX_CLASS_SERVER_API BSTR SysAllocStringLen(const char16_t *text, std::uint32_t length) noexcept;
/// Null is allowed.
KVEX_CLASS_SERVER_API void SysFreeString(BSTR text) noexcept;
/// In characters; 0 for null.
KVEX_CLASS_SERVER_API std::uint32_t SysStringLen(BSTR text) noexcept;

/// A class object that this process offers from now on, before any registered server of the
/// class; `*registration` is what CoRevokeClassObject takes.
KVEX_CLASS_SERVER_API HRESULT CoRegisterClassObject(const CLSID &classId, IUnknown *classObject,
                                                    std::uint32_t *registration) noexcept;
/// CO_E_OBJNOTREG for an unknown registration.
KVEX_CLASS_SERVER_API HRESULT CoRevokeClassObject(std::uint32_t registration) noexcept;
/// The class object: one of this process, else that of the registered server, which is loaded.
/// REGDB_E_CLASSNOTREG when nobody knows the class, CO_E_DLLNOTFOUND when its server's file
/// cannot be loaded, CO_E_ERRORINDLL when that file is no server.
KVEX_CLASS_SERVER_API HRESULT CoGetClassObject(const CLSID &classId, const IID &interfaceId,
                                               void **object) noexcept;
/// CoGetClassObject and its CreateInstance.
KVEX_CLASS_SERVER_API HRESULT CoCreateInstance(const CLSID &classId, IUnknown *outer,
                                               const IID &interfaceId, void **object) noexcept;
/// CO_E_CLASSSTRING for a name that is not registered.
KVEX_CLASS_SERVER_API HRESULT CLSIDFromProgID(const char16_t *programId, CLSID *classId) noexcept;
/// Unloads every server whose DllCanUnloadNow says S_OK. Not while another thread may be releasing
/// the last object of one: its code would go from under that thread.
KVEX_CLASS_SERVER_API void CoFreeUnusedLibraries() noexcept;
}
