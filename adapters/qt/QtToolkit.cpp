#include "adapters/qt/QtToolkit.h"

#include "adapters/controls/DesignCheck.h"
#include "adapters/qt/Pictures.h"
#include "adapters/qt/QText.h"
#include "adapters/qt/QtApplication.h"
#include "adapters/qt/QtWindow.h"
#include "platform/LineBreaks.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>

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
    const bool asks = style == message_box::yesNo;
    QMessageBox box(windowToShowOver());
    box.setObjectName(QStringLiteral("messageBox"));
    box.setAttribute(Qt::WA_QuitOnClose, false);
    box.setWindowTitle(toQt(title));
    box.setWindowIcon(productIcon());
    box.setTextFormat(Qt::PlainText);
    box.setText(toQt(withCrLf(text)).remove(u'\r'));
    box.setIcon(style == message_box::exclamation ? QMessageBox::Warning : QMessageBox::NoIcon);
    box.setStandardButtons(asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    // Buttons have no icons in the other windows either.
    for (QAbstractButton *button : box.buttons()) {
        button->setIcon({});
    }
    box.setEscapeButton(asks ? QMessageBox::No : QMessageBox::Ok);
    const int answer = box.exec();
    if (!asks) {
        return message_box::ok;
    }
    return answer == QMessageBox::Yes ? message_box::yes : message_box::no;
}

} // namespace kvex::qt
