// Smart pointers for component objects: ComPointer owns one reference to an object, Bstr owns one
// text. Both release what they own when they are destroyed, assigned to, or filled through put().
#pragma once

#include "kvex/ClassServer.h"

#include <limits>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace kvex {

template <class Interface> class ComPointer {
public:
    ComPointer() noexcept = default;
    /// Adds a reference; the caller keeps its own.
    explicit ComPointer(Interface *object) noexcept : object_(object) {
        if (object_ != nullptr) {
            object_->AddRef();
        }
    }
    /// Takes over the caller's reference.
    [[nodiscard]] static ComPointer adopt(Interface *object) noexcept {
        ComPointer pointer;
        pointer.object_ = object;
        return pointer;
    }
    ComPointer(const ComPointer &other) noexcept : ComPointer(other.object_) {}
    ComPointer(ComPointer &&other) noexcept : object_(other.detach()) {}
    /// Converts from the class of an object to one of its interfaces. Use as<IUnknown>() where the
    /// class derives from IUnknown more than once.
    template <class Derived,
              class = std::enable_if_t<std::is_convertible_v<Derived *, Interface *>>>
    ComPointer(ComPointer<Derived> other) noexcept : object_(other.detach()) {}
    ComPointer &operator=(ComPointer other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPointer() { reset(); }

    [[nodiscard]] Interface *get() const noexcept { return object_; }
    Interface *operator->() const noexcept { return object_; }
    Interface &operator*() const noexcept { return *object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    /// Releases the reference. The pointer is empty before the object's destructor runs.
    void reset() noexcept {
        if (Interface *object = detach()) {
            object->Release();
        }
    }
    /// Hands the reference over to the caller.
    [[nodiscard]] Interface *detach() noexcept { return std::exchange(object_, nullptr); }

    /// Empties the pointer and returns the address where a call can store a new reference.
    [[nodiscard]] Interface **put() noexcept {
        reset();
        return &object_;
    }
    /// The same for calls that take an interface id. It must be Interface::iid.
    [[nodiscard]] void **putVoid() noexcept { return reinterpret_cast<void **>(put()); }

    /// Another interface of the object. Empty when the object does not have it, or when this
    /// pointer is empty.
    template <class Other> [[nodiscard]] ComPointer<Other> as() const noexcept {
        ComPointer<Other> other;
        if (object_ != nullptr) {
            object_->QueryInterface(Other::iid, other.putVoid());
        }
        return other;
    }

private:
    Interface *object_ = nullptr;
};

/// Calls CoCreateInstance. `object` is empty after a failure.
template <class Interface>
[[nodiscard]] HRESULT createInstance(const CLSID &classId, ComPointer<Interface> &object) noexcept {
    return CoCreateInstance(classId, nullptr, Interface::iid, object.putVoid());
}

/// A view of the text's characters.
[[nodiscard]] inline std::u16string_view viewOf(BSTR text) noexcept {
    return {text == nullptr ? u"" : text, SysStringLen(text)};
}

/// The text in UTF-8. A code unit that belongs to no character becomes U+FFFD. Throws
/// std::bad_alloc without memory.
[[nodiscard]] inline std::string utf8Of(BSTR text) {
    std::string result(SysGetUtf8(text, nullptr, 0), '\0');
    if (result.empty() && SysStringLen(text) > 0) {
        throw std::bad_alloc();
    }
    SysGetUtf8(text, result.data(), static_cast<std::uint32_t>(result.size()));
    return result;
}

class Bstr {
public:
    Bstr() noexcept = default;
    /// Copies `text`. Throws std::bad_alloc when there is no memory.
    explicit Bstr(std::u16string_view text) {
        if (text.size() <= std::numeric_limits<std::uint32_t>::max()) {
            text_ = SysAllocStringLen(text.data(), static_cast<std::uint32_t>(text.size()));
        }
        if (text_ == nullptr) {
            throw std::bad_alloc();
        }
    }
    /// Copies a text that is UTF-8. Each byte that cannot be read becomes U+FFFD. Throws
    /// std::bad_alloc when there is no memory.
    [[nodiscard]] static Bstr fromUtf8(std::string_view text) {
        Bstr copy;
        if (text.size() <= std::numeric_limits<std::uint32_t>::max()) {
            copy.text_ = SysAllocUtf8(text.data(), static_cast<std::uint32_t>(text.size()));
        }
        if (copy.text_ == nullptr) {
            throw std::bad_alloc();
        }
        return copy;
    }
    Bstr(const Bstr &) = delete;
    Bstr(Bstr &&other) noexcept : text_(other.detach()) {}
    Bstr &operator=(Bstr other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    [[nodiscard]] BSTR get() const noexcept { return text_; }
    [[nodiscard]] std::u16string_view view() const noexcept { return viewOf(text_); }
    [[nodiscard]] std::u16string text() const { return std::u16string(view()); }
    [[nodiscard]] std::string utf8() const { return utf8Of(text_); }

    /// Hands the text over to the caller.
    [[nodiscard]] BSTR detach() noexcept { return std::exchange(text_, nullptr); }
    /// Frees the text and returns the address where a call can store a new one.
    [[nodiscard]] BSTR *put() noexcept {
        SysFreeString(detach());
        return &text_;
    }
    /// For an argument by reference: the callee reads the text and may free and replace it.
    [[nodiscard]] BSTR *inOut() noexcept { return &text_; }

private:
    BSTR text_ = nullptr;
};

} // namespace kvex
