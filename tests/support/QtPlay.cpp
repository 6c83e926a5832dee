#include "tests/support/QtPlay.h"

#include "adapters/qt/QText.h"
#include "adapters/qt/QtApplication.h"
#include "platform/controls/Toolkit.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace kvex::test {

QtPlay::QtPlay() {
    qt::requireApplication();
    // The time in which keys count as one search never ends, even on a slow machine.
    QApplication::setKeyboardInputInterval(3'600'000);
    qApp->installEventFilter(this);
}

void QtPlay::whenShown(std::u16string window, Script script) {
    scripts_.push_back({std::move(window), std::move(script)});
}

bool QtPlay::eventFilter(QObject *object, QEvent *event) {
    if (event->type() == QEvent::Show) {
        // The script must not begin before the window runs its own event loop.
        if (auto *dialog = dynamic_cast<qt::Dialog *>(object)) {
            QTimer::singleShot(0, dialog, [this, dialog] { play(*dialog); });
        } else if (auto *box = dynamic_cast<QMessageBox *>(object)) {
            QTimer::singleShot(0, box, [this, box] { answer(*box); });
        }
    }
    return QObject::eventFilter(object, event);
}

void QtPlay::play(qt::Dialog &dialog) {
    const std::string name = dialog.objectName().toStdString();
    QtUser user(dialog, problems_);
    if (!activate(dialog)) {
        problems_.push_back(name + " did not become the active window");
    }
    if (scripts_.empty() || (!scripts_.front().window.empty() &&
                             qt::toQt(scripts_.front().window) != dialog.objectName())) {
        problems_.push_back(name + " was shown unexpectedly");
    } else {
        const Script script = std::move(scripts_.front().script);
        scripts_.pop_front();
        script(user);
        if (user.isOpen()) {
            problems_.push_back(name + " was left open");
        }
    }
    user.closeByFrame();
}

void QtPlay::answer(QMessageBox &box) {
    const bool asks = box.button(QMessageBox::Yes) != nullptr;
    messageBoxes_.push_back({qt::fromQt(box.windowTitle()), qt::fromQt(box.text()),
                             asks ? message_box::yesNo : message_box::exclamation});
    activate(box);
    std::optional<std::int32_t> wanted = asks ? message_box::no : message_box::ok;
    if (!answers_.empty()) {
        wanted = answers_.front();
        answers_.pop_front();
    }
    if (!wanted) {
        QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
        return;
    }
    const auto button = *wanted == message_box::yes  ? QMessageBox::Yes
                        : *wanted == message_box::no ? QMessageBox::No
                                                     : QMessageBox::Ok;
    if (QAbstractButton *pressed = box.button(button)) {
        QTest::mouseClick(box.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          pressed->mapTo(&box, pressed->rect().center()));
    } else {
        problems_.push_back("the message box has no such button: " + box.text().toStdString());
        box.close();
    }
}

bool QtPlay::activate(QWidget &window) {
    window.activateWindow();
    // Qt calls a window active as soon as the window below it is. The focus comes later: a key
    // pressed before then would go to the window below.
    return QTest::qWaitFor([&window] {
        const QWidget *focused = window.focusWidget();
        return QApplication::activeWindow() == &window &&
               (focused == nullptr || focused == QApplication::focusWidget());
    });
}

} // namespace kvex::test
