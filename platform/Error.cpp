#include "platform/Error.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

namespace kvex {
namespace {

struct NumberedText {
    std::int32_t number;
    const char16_t *text;
};

constexpr std::array descriptions{
    NumberedText{error_number::invalidCall, u"Invalid procedure call or argument"},
    NumberedText{error_number::overflow, u"Overflow"},
    NumberedText{error_number::outOfMemory, u"Out of memory"},
    NumberedText{error_number::subscriptOutOfRange, u"Subscript out of range"},
    NumberedText{error_number::typeMismatch, u"Type mismatch"},
    NumberedText{error_number::internalError, u"Internal error"},
    NumberedText{error_number::objectNotSet, u"Object variable or With block variable not set"},
    NumberedText{error_number::invalidUseOfNull, u"Invalid use of Null"},
    NumberedText{error_number::invalidPropertyValue, u"Invalid property value"},
    NumberedText{error_number::cannotCreateObject, u"ActiveX component can't create object"},
    NumberedText{error_number::automationError, u"Automation error"},
    NumberedText{error_number::controlNotFound, u"Control not found"},
    NumberedText{error_number::badArgument,
                 u"Arguments are of the wrong type, are out of acceptable range, or are in "
                 u"conflict with one another."},
    NumberedText{error_number::noCurrentRecord,
                 u"Either BOF or EOF is True, or the current record has been deleted. Requested "
                 u"operation requires a current record."},
    NumberedText{error_number::itemNotFound,
                 u"Item cannot be found in the collection corresponding to the requested name or "
                 u"ordinal."},
    NumberedText{error_number::objectClosed,
                 u"Operation is not allowed when the object is closed."},
    NumberedText{error_number::objectOpen, u"Operation is not allowed when the object is open."},
    NumberedText{error_number::indexOutOfBounds, u"Index out of bounds"},
    NumberedText{error_number::elementNotFound, u"Element not found"},
    NumberedText{error_number::keyNotUnique, u"Key is not unique in collection"},
};

std::u16string descriptionOf(std::int32_t number) {
    const auto found = std::ranges::find(descriptions, number, &NumberedText::number);
    return found == descriptions.end() ? u"Application-defined or object-defined error"
                                       : found->text;
}

} // namespace

Error::Error(std::int32_t number, std::u16string description, std::u16string source,
             HelpContext helpContext)
    : number_(number),
      description_(description.empty() ? descriptionOf(number) : std::move(description)),
      source_(std::move(source)), helpContext_(helpContext),
      what_("error " + std::to_string(number_) + ": " + toUtf8(description_) + " (" +
            toUtf8(source_) + ")") {}

Error Error::explained(HelpContext context, std::u16string_view more) const {
    std::u16string description = description_;
    if (!more.empty()) {
        description.append(description.ends_with(u'.') ? u" " : u". ").append(more);
    }
    return Error(number_, std::move(description), source_,
                 helpContext_ == HelpContext::none ? context : helpContext_);
}

Error Error::current() {
    try {
        throw;
    } catch (const Error &error) {
        return error;
    } catch (const std::bad_alloc &) {
        return Error(error_number::outOfMemory);
    } catch (const std::exception &error) {
        return Error(error_number::internalError, fromUtf8(error.what()));
    } catch (...) {
        return Error(error_number::internalError);
    }
}

} // namespace kvex
