// When a window has been painted.
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>

#include <functional>

namespace kvex::bench {

/// Calls `then` from the event loop each time the widget of this name, or what scrolls in it, was
/// painted and what was painted handed to the display. One at a time.
class Painting final : public QObject {
public:
    Painting(QString name, std::function<void()> then);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QString name_;
    std::function<void()> then_;
    bool pending_ = false;
};

/// The widget of this name in the window that is active.
[[nodiscard]] QWidget &shownWidget(const QString &name);
template <class Kind> [[nodiscard]] Kind &shown(const QString &name) {
    return dynamic_cast<Kind &>(shownWidget(name));
}
/// Runs `action` and lets everything happen that is waiting, until the widget was painted.
void untilPainted(const QString &name, const std::function<void()> &action);
/// Closes the window that is active, as its frame does.
void closeWindow();

} // namespace kvex::bench
