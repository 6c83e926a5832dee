// A window: a modal dialog with its controls.
#pragma once

#include "adapters/qt/Controls.h"
#include "adapters/qt/Dialog.h"
#include "platform/controls/Window.h"

#include <QPointer>

namespace kvex::qt {

class QtWindow final : public Window {
public:
    explicit QtWindow(const WindowDesign &design);
    ~QtWindow() override;

    [[nodiscard]] std::u16string caption() const override { return caption_; }
    void setCaption(const std::u16string &caption) override;
    void showModal() override;
    void close() override;

private:
    [[nodiscard]] Control *find(std::u16string_view name) override;
    void setFirstSize(const WindowDesign &design);

    std::u16string caption_;
    bool wasShown_ = false;
    bool isClosed_ = false;
    /// Qt destroys it with its parent window. Then this pointer is null.
    QPointer<Dialog> dialog_;
    Controls controls_;
};

} // namespace kvex::qt
