// A list view without a window.
#pragma once

#include "adapters/controls/ListRows.h"

#include <string>

namespace kvex::test {

class BareList final : public controls::ListRows {
public:
    explicit BareList(bool multiSelect = false) : controls::ListRows(multiSelect) {}
    [[nodiscard]] const std::u16string &name() const override { return name_; }
    [[nodiscard]] bool enabled() const override { return true; }
    void setEnabled(bool) override {}
    [[nodiscard]] bool visible() const override { return true; }
    void setVisible(bool) override {}
    void setFocus() override {}
    void refresh() override {}

private:
    std::u16string name_;
};

} // namespace kvex::test
