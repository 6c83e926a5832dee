#include "adapters/qt/MessageBox.h"

#include "adapters/qt/Pictures.h"
#include "adapters/qt/QText.h"
#include "adapters/qt/QtApplication.h"
#include "platform/LineBreaks.h"
#include "platform/controls/Toolkit.h"

#include <QAbstractButton>
#include <QMessageBox>

namespace kvex::qt {

std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                            std::int32_t style) {
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
    // As in every other window of the component.
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
