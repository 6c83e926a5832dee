#include "host/suite/MessageBoxUtility.h"

#include "adapters/qt/QtToolkit.h"

namespace kvex::host {

std::int32_t MessageBoxUtility::showMessage(const std::u16string &text, std::int32_t style) {
    return qt::QtToolkit().showMessageBox(u"SMS Rules", text, style);
}

} // namespace kvex::host
