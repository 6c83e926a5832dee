#include "bench/windows/Painting.h"

#include "adapters/qt/QtApplication.h"
#include "tests/support/VirtualDisplay.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <stdexcept>
#include <utility>

namespace kvex::bench {
namespace {

QWidget &activeWindow() {
    QWidget *modal = QApplication::activeModalWidget();
    if (modal == nullptr) {
        throw std::runtime_error("no window is shown");
    }
    return *modal;
}

} // namespace

void requireDisplay() {
    static const auto &display = *new test::VirtualDisplay;
    static_cast<void>(display);
    qt::requireApplication();
}

Painting::Painting(QString name, std::function<void()> then)
    : name_(std::move(name)), then_(std::move(then)) {
    qApp->installEventFilter(this);
}

bool Painting::eventFilter(QObject *object, QEvent *event) {
    const bool isOurs = object->objectName() == name_ ||
                        (object->parent() != nullptr && object->parent()->objectName() == name_);
    if (event->type() == QEvent::Paint && isOurs && !pending_) {
        // Qt paints the whole window and hands it over before the event loop goes on.
        pending_ = true;
        QTimer::singleShot(0, this, [this] {
            pending_ = false;
            then_();
        });
    }
    return false;
}

QWidget &shownWidget(const QString &name) {
    auto *found = activeWindow().findChild<QWidget *>(name);
    if (found == nullptr) {
        throw std::runtime_error("there is no widget " + name.toStdString());
    }
    return *found;
}

void untilPainted(const QString &name, const std::function<void()> &action) {
    bool painted = false;
    const Painting painting(name, [&painted] { painted = true; });
    action();
    while (!painted) {
        // Events that were posted before the current one would not wake the event loop.
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents(painted ? QEventLoop::AllEvents
                                                : QEventLoop::WaitForMoreEvents);
    }
}

void closeWindow() {
    activeWindow().close();
}

} // namespace kvex::bench
