#include "platform/Unicode.h"

#include <utf8proc.h>

namespace kvex {

bool isLetterOrDigit(char32_t character) {
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(character))) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
    case UTF8PROC_CATEGORY_ND:
        return true;
    default:
        return false;
    }
}

} // namespace kvex
