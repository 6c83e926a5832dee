#include "adapters/controls/DesignCheck.h"

#include "platform/Error.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

namespace kvex::controls {
namespace {

class DesignCheck {
public:
    explicit DesignCheck(const WindowDesign &design) : design_(design) {
        for (const ControlDesign &control : design.controls) {
            require(!control.name.empty(), u"a control has no name");
            require(controls_.emplace(control.name, &control).second,
                    u"two controls are named " + control.name);
        }
    }

    void run() {
        checkPlaces(design_.layout);
        for (const ControlDesign &control : design_.controls) {
            checkControl(control);
        }
        checkRole(&ControlDesign::isDefault, u"default");
        checkRole(&ControlDesign::isCancel, u"cancel");
    }

private:
    void require(bool holds, const std::u16string &fault) const {
        if (!holds) {
            throw Error(error_number::invalidCall, design_.name + u": " + fault);
        }
    }

    [[nodiscard]] bool isOf(std::u16string_view name, bool imageList) const {
        const auto found = controls_.find(name);
        return found != controls_.end() &&
               (found->second->kind == ControlKind::imageList) == imageList;
    }

    void checkPlaces(const Layout &layout) {
        if (layout.kind == Layout::Kind::control) {
            require(isOf(layout.control, false), layout.control + u" is placed, but no control");
            require(placed_.insert(layout.control).second, layout.control + u" is placed twice");
        }
        for (const Layout &piece : layout.pieces) {
            checkPlaces(piece);
        }
    }

    void checkControl(const ControlDesign &control) const {
        const bool needsPlace = control.visible && control.kind != ControlKind::imageList;
        require(!needsPlace || placed_.contains(control.name), control.name + u" has no place");
        require(control.buddy.empty() || isOf(control.buddy, false),
                control.name + u" has the buddy " + control.buddy + u", which is no control");
        require(control.describes.empty() || isOf(control.describes, false),
                control.name + u" describes " + control.describes + u", which is no control");
        require(control.imageList.empty() || isOf(control.imageList, true),
                control.name + u" has the image list " + control.imageList + u", which is none");
    }

    void checkRole(bool ControlDesign::*role, const std::u16string &name) const {
        require(std::ranges::count(design_.controls, true, role) <= 1, u"two buttons are " + name);
    }

    const WindowDesign &design_;
    std::map<std::u16string_view, const ControlDesign *> controls_;
    std::set<std::u16string_view> placed_;
};

} // namespace

void checkDesign(const WindowDesign &design) {
    DesignCheck(design).run();
}

} // namespace kvex::controls
