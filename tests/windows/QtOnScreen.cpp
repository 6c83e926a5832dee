#include "tests/windows/QtOnScreen.h"

#include "adapters/qt/QText.h"

#include <QClipboard>
#include <QGuiApplication>

namespace kvex::test {

void QtStage::setClipboardText(const std::u16string &text) {
    QGuiApplication::clipboard()->setText(qt::toQt(text));
}

} // namespace kvex::test
