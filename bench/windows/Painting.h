// Shows windows on a virtual display and waits until they are painted.
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>

#include <functional>

namespace kvex::bench {

/// Makes a virtual display and Qt's application on it. Both stay until the program ends.
void requireDisplay();

/// Calls `then` from the event loop each time a widget was painted and handed to the display. The
/// widget is the one of this name, or its scrolled area. Paintings do not overlap.
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

/// The widget of this name in the active window.
[[nodiscard]] QWidget &shownWidget(const QString &name);
template <class Kind> [[nodiscard]] Kind &shown(const QString &name) {
    return dynamic_cast<Kind &>(shownWidget(name));
}
/// Runs `action`, then the event loop, until the widget has been painted.
void untilPainted(const QString &name, const std::function<void()> &action);
/// Closes the active window, as a click on its frame does.
void closeWindow();

} // namespace kvex::bench
