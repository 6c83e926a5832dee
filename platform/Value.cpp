#include "platform/Value.h"

#include "platform/Error.h"
#include "platform/Text.h"

#include <limits>

namespace kvex {
namespace {

template <class... Cases> struct Overloaded : Cases... { using Cases::operator()...; };
template <class... Cases> Overloaded(Cases...) -> Overloaded<Cases...>;

template <class Integer> Integer narrowed(std::int64_t number) {
    if (number < std::numeric_limits<Integer>::min() ||
        number > std::numeric_limits<Integer>::max()) {
        throw Error(error_number::overflow);
    }
    return static_cast<Integer>(number);
}

} // namespace

Value ValueView::owned() const {
    return std::visit(Overloaded{
                          [](std::u16string_view text) -> Value { return std::u16string(text); },
                          [](auto other) -> Value { return other; },
                      },
                      held_);
}

std::u16string ValueView::text() const {
    return std::visit(
        Overloaded{
            [](Null) -> std::u16string { throw Error(error_number::invalidUseOfNull); },
            [](std::u16string_view text) { return std::u16string(text); },
            [](auto number) { return toText(number); },
        },
        held_);
}

std::u16string_view ValueView::textOrEmpty() const {
    const auto *text = std::get_if<std::u16string_view>(&held_);
    return text == nullptr ? std::u16string_view() : *text;
}

std::int64_t ValueView::int64() const {
    return std::visit(Overloaded{
                          [](Null) -> std::int64_t { throw Error(error_number::invalidUseOfNull); },
                          [](std::int64_t number) { return number; },
                          [](auto other) { return toInt64(other); },
                      },
                      held_);
}

std::int32_t ValueView::int32() const {
    return std::visit(Overloaded{
                          [](Null) -> std::int32_t { throw Error(error_number::invalidUseOfNull); },
                          [](std::int64_t number) { return narrowed<std::int32_t>(number); },
                          [](auto other) { return toInt32(other); },
                      },
                      held_);
}

std::int16_t ValueView::int16() const {
    return std::visit(Overloaded{
                          [](Null) -> std::int16_t { throw Error(error_number::invalidUseOfNull); },
                          [](std::int64_t number) { return narrowed<std::int16_t>(number); },
                          [](auto other) { return toInt16(other); },
                      },
                      held_);
}

} // namespace kvex
