// The platform's text as Qt's, code unit by code unit.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace kvex::qt {

[[nodiscard]] inline QString toQt(std::u16string_view text) {
    return QStringView(text).toString();
}
[[nodiscard]] inline std::u16string fromQt(const QString &text) {
    return text.toStdU16String();
}

} // namespace kvex::qt
