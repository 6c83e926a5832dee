// What every control of this toolkit is: one widget of its window, under the control's name.
#pragma once

#include "adapters/controls/EventDelivery.h"
#include "platform/controls/Control.h"
#include "platform/controls/WindowDesign.h"

#include <QWidget>

#include <string>
#include <utility>
#include <vector>

namespace kvex::qt {

class ControlWidget {
public:
    ControlWidget(const ControlDesign &design, const std::u16string &window, QWidget &widget);
    virtual ~ControlWidget() = default;
    ControlWidget(const ControlWidget &) = delete;
    ControlWidget &operator=(const ControlWidget &) = delete;

    [[nodiscard]] QWidget &widget() const { return widget_; }
    /// What takes the focus for it.
    [[nodiscard]] virtual QWidget &focusTarget() const { return widget_; }
    /// What of it Tab reaches, in order.
    [[nodiscard]] virtual std::vector<QWidget *> tabStops() const { return {&widget_}; }
    /// The layout has a place for it; without one it is never shown.
    void setPlaced();
    /// The text that assistive technology reads out for it.
    virtual void setSpokenName(const QString &name);

protected:
    void applyEnabled(bool enabled);
    void applyVisible(bool visible);
    void giveFocus();

    /// Runs a handler of this control. An error of the database that leaves it is shown, too: the
    /// user must not take for stored what he sees.
    template <class... Parameters, class... Arguments>
    void run(const std::function<void(Parameters...)> &handler, Arguments &&...arguments) {
        controls::deliver(handler, where_, showRefusal, std::forward<Arguments>(arguments)...);
    }

    std::u16string name_;
    bool enabled_;
    bool visible_;

private:
    static void showRefusal(const Error &error);
    void passFocusOn();

    QWidget &widget_;
    std::u16string where_;
    QString disabledHint_;
    bool placed_ = false;
};

/// A control of the interface `Kind`, shown by a `Shown`.
template <class Kind, class Shown = QWidget>
class WidgetControl : public Kind, public ControlWidget {
public:
    [[nodiscard]] const std::u16string &name() const final { return name_; }
    [[nodiscard]] bool enabled() const final { return enabled_; }
    void setEnabled(bool enabled) final { applyEnabled(enabled); }
    [[nodiscard]] bool visible() const final { return visible_; }
    void setVisible(bool visible) final { applyVisible(visible); }
    void setFocus() final { giveFocus(); }
    void refresh() final { widget().repaint(); }

    [[nodiscard]] Shown &shown() const { return static_cast<Shown &>(widget()); }

protected:
    template <class... KindArguments>
    WidgetControl(const ControlDesign &design, const std::u16string &window, Shown &shown,
                  KindArguments &&...kindArguments)
        : Kind(std::forward<KindArguments>(kindArguments)...),
          ControlWidget(design, window, shown) {}
};

} // namespace kvex::qt
