#include "adapters/qt/Controls.h"

#include "adapters/controls/Keys.h"
#include "adapters/qt/LayoutBuilder.h"
#include "adapters/qt/QText.h"
#include "adapters/qt/QtButtons.h"
#include "adapters/qt/QtDTPicker.h"
#include "adapters/qt/QtListView.h"
#include "adapters/qt/QtRichTextBox.h"
#include "adapters/qt/QtStaticControls.h"
#include "adapters/qt/QtTextBox.h"

#include <algorithm>
#include <set>
#include <utility>

namespace kvex::qt {
namespace {

void collectFrames(const Layout &layout, std::set<std::u16string> &surrounding) {
    if (layout.kind == Layout::Kind::control && !layout.pieces.empty()) {
        surrounding.insert(layout.control);
    }
    for (const Layout &piece : layout.pieces) {
        collectFrames(piece, surrounding);
    }
}

} // namespace

/// Makes a control from its design.
class Controls::Builder {
public:
    Builder(const WindowDesign &design, Dialog &dialog) : design_(design), dialog_(dialog) {
        collectFrames(design.layout, surroundingFrames_);
    }

    /// Returns nothing for an image list, because it is not a control.
    [[nodiscard]] Built build(const ControlDesign &design) {
        switch (design.kind) {
        case ControlKind::label:
            return made<QtLabel>(design);
        case ControlKind::commandButton:
            return button(design);
        case ControlKind::checkBox:
            return made<QtCheckBox>(design);
        case ControlKind::optionButton:
            return made<QtOptionButton>(design, groupOf(design));
        case ControlKind::textBox:
            return made<QtTextBox>(design);
        case ControlKind::richTextBox:
            return made<QtRichTextBox>(design);
        case ControlKind::listView:
            return made<QtListView>(design, picturesFor(design));
        case ControlKind::datePicker:
        case ControlKind::timePicker:
            return made<QtDTPicker>(design);
        case ControlKind::frame:
            return made<QtFrame>(design, surroundingFrames_.contains(design.name));
        case ControlKind::imageList:
            break;
        }
        return {};
    }

private:
    template <class Made, class... Arguments>
    [[nodiscard]] Built made(const ControlDesign &design, Arguments &&...arguments) {
        auto control = std::make_unique<Made>(design, design_.name, dialog_,
                                              std::forward<Arguments>(arguments)...);
        Made *widget = control.get();
        return {std::move(control), widget};
    }

    [[nodiscard]] Built button(const ControlDesign &design) {
        Built built = made<QtCommandButton>(design);
        auto *button = static_cast<QPushButton *>(&built.widget->widget());
        if (design.isDefault) {
            dialog_.setDefaultButton(button);
        }
        if (design.isCancel) {
            dialog_.setCancelButton(button);
        }
        return built;
    }

    /// An option button without a group name has its own group.
    [[nodiscard]] QButtonGroup &groupOf(const ControlDesign &design) {
        QButtonGroup *&group = groups_[design.group.empty() ? design.name : design.group];
        if (group == nullptr) {
            group = new QButtonGroup(&dialog_);
        }
        return *group;
    }

    [[nodiscard]] std::vector<Picture> picturesFor(const ControlDesign &list) const {
        const auto found =
            std::ranges::find(design_.controls, list.imageList, &ControlDesign::name);
        return found == design_.controls.end() ? std::vector<Picture>() : found->pictures;
    }

    const WindowDesign &design_;
    Dialog &dialog_;
    std::set<std::u16string> surroundingFrames_;
    std::map<std::u16string, QButtonGroup *> groups_;
};

Controls::Controls(const WindowDesign &design, Dialog &dialog) {
    Builder builder(design, dialog);
    for (const ControlDesign &control : design.controls) {
        if (Built built = builder.build(control); built.control != nullptr) {
            built_.emplace(control.name, std::move(built));
        }
    }
    dialog.setPane(
        buildLayout(dialog, design.layout, [this](const auto &name) { return widgetOf(name); }));
    nameAloud(design);
    setTabOrder(design);
}

Control *Controls::find(std::u16string_view name) const {
    const auto found = built_.find(name);
    return found == built_.end() ? nullptr : found->second.control.get();
}

Element *Controls::widgetOf(std::u16string_view name) const {
    const auto found = built_.find(name);
    return found == built_.end() ? nullptr : found->second.widget;
}

/// Gives every control the accessible name from its design, or else from its label, and tells the
/// labels which controls they describe.
void Controls::nameAloud(const WindowDesign &design) {
    for (const ControlDesign &control : design.controls) {
        Element *buddy = widgetOf(control.buddy);
        if (control.kind == ControlKind::label && buddy != nullptr) {
            dynamic_cast<QtLabel &>(*widgetOf(control.name)).setBuddy(buddy->widget());
            buddy->setSpokenName(toQt(controls::parseCaption(control.caption).shown));
        }
    }
    for (const ControlDesign &control : design.controls) {
        if (const Element *described = widgetOf(control.describes); described != nullptr) {
            dynamic_cast<QtLabel &>(*widgetOf(control.name)).setDescribed(described->widget());
        }
        if (Element *widget = widgetOf(control.name);
            widget != nullptr && !control.accessibleName.empty()) {
            widget->setSpokenName(toQt(control.accessibleName));
        }
    }
}

void Controls::setTabOrder(const WindowDesign &design) {
    QWidget *previous = nullptr;
    for (const ControlDesign &control : design.controls) {
        const Element *widget = widgetOf(control.name);
        if (widget == nullptr) {
            continue;
        }
        for (QWidget *stop : widget->tabStops()) {
            if (previous != nullptr) {
                QWidget::setTabOrder(previous, stop);
            }
            previous = stop;
        }
    }
}

} // namespace kvex::qt
