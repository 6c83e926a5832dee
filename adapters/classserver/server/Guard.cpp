#include "adapters/classserver/server/Guard.h"

#include "platform/Error.h"

#include <new>
#include <system_error>

namespace kvex {
namespace {

HRESULT resultOf(const Error &error) noexcept {
    constexpr std::int32_t largest = 0xFFFF;
    if (error.fromDatabase()) {
        return error.number();
    }
    if (error.number() == error_number::outOfMemory) {
        return E_OUTOFMEMORY;
    }
    const bool passesOn = error.number() > 0 && error.number() <= largest;
    return passesOn ? hresultOf(0x800A0000U | static_cast<std::uint32_t>(error.number())) : E_FAIL;
}

} // namespace

HRESULT currentResult() noexcept {
    try {
        throw;
    } catch (const Error &error) {
        return resultOf(error);
    } catch (const std::bad_alloc &) {
        return E_OUTOFMEMORY;
    } catch (const std::system_error &error) {
        return error.code() == std::errc::permission_denied ? E_ACCESSDENIED : E_FAIL;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

} // namespace kvex
