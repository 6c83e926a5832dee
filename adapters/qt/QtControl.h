// What every control of this toolkit has.
#pragma once

#include "adapters/controls/EventDelivery.h"
#include "platform/controls/Control.h"
#include "platform/controls/WindowDesign.h"

#include <QWidget>

#include <string>
#include <utility>
#include <vector>

namespace kvex::qt {

/// A control as its window sees it: a widget with the control's name.
class Element {
public:
    Element(const ControlDesign &design, const std::u16string &window, QWidget &widget);
    virtual ~Element() = default;
    Element(const Element &) = delete;
    Element &operator=(const Element &) = delete;

    [[nodiscard]] QWidget &widget() const { return widget_; }
    /// The widget that takes the focus for the control.
    [[nodiscard]] virtual QWidget &focusTarget() const { return widget_; }
    /// The widgets that Tab reaches, in order.
    [[nodiscard]] virtual std::vector<QWidget *> tabStops() const { return {&widget_}; }
    /// Tells the control that the layout has a place for it. Without a place it stays hidden.
    void setPlaced();
    /// The name that assistive technology reads out.
    virtual void setSpokenName(const QString &name);

protected:
    void applyEnabled(bool enabled);
    void applyVisible(bool visible);
    /// Called after the control was shown or hidden.
    virtual void visibleSet() {}
    void giveFocus();

    /// Runs a handler of this control. If an error that concerns the user leaves it, a message
    /// shows its description. Otherwise they would think that their change was stored.
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

/// Adds to an element what code sees: the interface `Kind`. The widget is a `Shown`.
template <class Kind, class Shown = QWidget> class QtControl : public Kind, public Element {
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
    QtControl(const ControlDesign &design, const std::u16string &window, Shown &shown,
              KindArguments &&...kindArguments)
        : Kind(std::forward<KindArguments>(kindArguments)...), Element(design, window, shown) {}
};

} // namespace kvex::qt
