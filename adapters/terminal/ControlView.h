// How a control looks and what the mouse does to it.
#pragma once

#include "adapters/lightweight/LightControl.h"
#include "adapters/terminal/Canvas.h"
#include "adapters/terminal/Placeable.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::terminal {

/// What the terminal can show.
struct Ability {
    Characters characters = Characters::unicode;
    bool colours = true;
};

/// What a view must know of its window to paint.
struct Look {
    bool hasFocus = false;
    /// Whether Enter presses this button.
    bool byEnter = false;
    Economy economy = Economy::none;
};

class ControlView : public Placeable {
public:
    ControlView(lightweight::Element &element, Ability ability)
        : element_(element), ability_(ability) {}

    [[nodiscard]] lightweight::Element &element() const { return element_; }
    [[nodiscard]] bool isShown() const override { return element_.isVisible(); }

    /// Paints the control into `at`, and puts the cursor where the user's attention is if it has
    /// the focus.
    virtual void paint(Canvas &canvas, const Rect &at, const Look &look) = 0;

    /// The user clicks at this place of what was painted last. The element is usable and has the
    /// focus.
    virtual void click(Point, bool /*twice*/) { element_.click(); }
    /// Scrolls by so many rows; false if there is nothing to scroll.
    virtual bool scroll(int) { return false; }
    /// Whether the page keys do something here.
    [[nodiscard]] virtual bool hasPages() const { return growsDown(); }
    /// A key whose effect depends on what is seen; false to leave it to the element.
    virtual bool press(lightweight::Key) { return false; }
    /// A text from outside that is no text of the element; false to leave it to the element.
    virtual bool paste(std::u16string_view) { return false; }

protected:
    [[nodiscard]] Ability ability() const { return ability_; }
    [[nodiscard]] Characters characters() const { return ability_.characters; }

private:
    lightweight::Element &element_;
    Ability ability_;
};

/// The view for the element. A list shows `pictures`.
[[nodiscard]] std::unique_ptr<ControlView> viewOf(lightweight::Element &element, Ability ability,
                                                  std::vector<Picture> pictures);

} // namespace kvex::terminal
