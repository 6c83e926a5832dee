#include "adapters/qt/QtToolkit.h"

#include "adapters/controls/DesignCheck.h"
#include "adapters/qt/MessageBox.h"
#include "adapters/qt/QText.h"
#include "adapters/qt/QtApplication.h"
#include "adapters/qt/QtWindow.h"

#include <QApplication>
#include <QClipboard>

namespace kvex::qt {

bool QtClipboard::hasText() const {
    return !text().empty();
}

std::u16string QtClipboard::text() const {
    const bool hasOne = dynamic_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr;
    return hasOne ? fromQt(QGuiApplication::clipboard()->text()) : std::u16string();
}

std::unique_ptr<Window> QtToolkit::createWindow(const WindowDesign &design) {
    requireApplication();
    controls::checkDesign(design);
    return std::make_unique<QtWindow>(design);
}

std::int32_t QtToolkit::showMessageBox(const std::u16string &title, const std::u16string &text,
                                       std::int32_t style) {
    requireApplication();
    return qt::showMessageBox(title, text, style);
}

} // namespace kvex::qt
