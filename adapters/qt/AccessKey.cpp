#include "adapters/qt/AccessKey.h"

#include <QShortcutEvent>

namespace kvex::qt {
namespace {

class AccessKeyFilter final : public QObject {
public:
    explicit AccessKeyFilter(QAbstractButton &button) : QObject(&button), button_(button) {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        const bool isOwnKey = event->type() == QEvent::Shortcut &&
                              !static_cast<const QShortcutEvent *>(event)->isAmbiguous();
        if (isOwnKey) {
            button_.setFocus(Qt::ShortcutFocusReason);
            button_.click();
        }
        return isOwnKey || QObject::eventFilter(watched, event);
    }

private:
    QAbstractButton &button_;
};

} // namespace

void clickByAccessKey(QAbstractButton &button) {
    button.installEventFilter(new AccessKeyFilter(button));
}

} // namespace kvex::qt
