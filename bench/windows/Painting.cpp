#include "bench/windows/Painting.h"

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

Painting::Painting(QString name, std::function<void()> then)
    : name_(std::move(name)), then_(std::move(then)) {
    qApp->installEventFilter(this);
}

bool Painting::eventFilter(QObject *object, QEvent *event) {
    const bool isOurs = object->objectName() == name_ ||
                        (object->parent() != nullptr && object->parent()->objectName() == name_);
    if (event->type() == QEvent::Paint && isOurs && !pending_) {
        // The whole window is painted and handed over before the event loop goes on.
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
        throw std::runtime_error("no widget " + name.toStdString());
    }
    return *found;
}

void untilPainted(const QString &name, const std::function<void()> &action) {
    bool painted = false;
    const Painting painting(name, [&painted] { painted = true; });
    action();
    while (!painted) {
        // What was posted before the event that this runs in would be waited for in vain.
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents(painted ? QEventLoop::AllEvents
                                                : QEventLoop::WaitForMoreEvents);
    }
}

void closeWindow() {
    activeWindow().close();
}

} // namespace kvex::bench
