// A variable that holds an object or nothing. Using it while it holds nothing is an error.
#pragma once

#include "platform/Error.h"

#include <memory>
#include <utility>

namespace kvex {

template <class Object> class ObjectVariable {
public:
    /// Releases the object that the variable held before.
    ObjectVariable &operator=(std::unique_ptr<Object> object) noexcept {
        object_ = std::move(object);
        return *this;
    }
    void release() noexcept { object_.reset(); }

    [[nodiscard]] explicit operator bool() const noexcept { return object_ != nullptr; }
    /// Fails with objectNotSet while the variable is empty.
    [[nodiscard]] Object &operator*() const {
        if (!object_) {
            throw Error(error_number::objectNotSet);
        }
        return *object_;
    }
    [[nodiscard]] Object *operator->() const { return &**this; }

private:
    std::unique_ptr<Object> object_;
};

} // namespace kvex
