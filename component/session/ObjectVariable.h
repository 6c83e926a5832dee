// A variable that holds an object or nothing; using it while it holds nothing is an error.
#pragma once

#include "platform/Error.h"

#include <memory>
#include <utility>

namespace kvex {

template <class Object> class ObjectVariable {
public:
    /// Releases the object held before.
    ObjectVariable &operator=(std::unique_ptr<Object> object) noexcept {
        object_ = std::move(object);
        return *this;
    }
    void release() noexcept { object_.reset(); }

    [[nodiscard]] explicit operator bool() const noexcept { return object_ != nullptr; }
    /// Raises objectNotSet while nothing is held.
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
