// A list view that fails when a test wants it to, and a toolkit whose windows contain it.
#pragma once

#include "platform/Error.h"
#include "platform/controls/ListView.h"
#include "platform/controls/Toolkit.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace kvex::test {

/// Which list fails, and which of its calls fail with automationError.
struct Breakage {
    enum class What { nothing, ticking, everything };
    What what = What::nothing;
    /// The name of the list, in any window.
    std::u16string list = {};

    void meet(What met) const {
        if (what == What::everything || (what == met && met != What::nothing)) {
            throw Error(error_number::automationError);
        }
    }
};

/// Passes each call on to a real list until it breaks. The user always acts on the real list.
class BreakableList final : public ListView {
public:
    BreakableList(ListView &real, const Breakage &breakage) : real_(real), breakage_(breakage) {
        real_.onItemClick = [this](int row) { run(onItemClick, row); };
        real_.onItemCheck = [this](int row) { run(onItemCheck, row); };
        real_.onDoubleClick = [this] { run(onDoubleClick); };
    }

    [[nodiscard]] const std::u16string &name() const override { return real_.name(); }
    [[nodiscard]] bool enabled() const override { return real().enabled(); }
    void setEnabled(bool enabled) override { real().setEnabled(enabled); }
    [[nodiscard]] bool visible() const override { return real().visible(); }
    void setVisible(bool visible) override { real().setVisible(visible); }
    void setFocus() override { real().setFocus(); }
    void refresh() override { real().refresh(); }

    void clearColumns() override { real().clearColumns(); }
    void addColumn(const std::u16string &header, double width) override {
        real().addColumn(header, width);
    }
    [[nodiscard]] int columnCount() const override { return real().columnCount(); }
    void setColumnIcon(int column, int icon) override { real().setColumnIcon(column, icon); }
    void clearRows() override { real().clearRows(); }
    [[nodiscard]] int rowCount() const override { return real().rowCount(); }
    int addRow(const std::u16string &text, const std::u16string &key) override {
        return real().addRow(text, key);
    }
    void removeRow(int row) override { real().removeRow(row); }
    [[nodiscard]] std::u16string text(int row) const override { return real().text(row); }
    void setText(int row, const std::u16string &text) override { real().setText(row, text); }
    [[nodiscard]] std::u16string key(int row) const override { return real().key(row); }
    [[nodiscard]] int rowOfKey(std::u16string_view key) const override {
        return real().rowOfKey(key);
    }
    [[nodiscard]] std::u16string subItem(int row, int index) const override {
        return real().subItem(row, index);
    }
    void setSubItem(int row, int index, const std::u16string &text) override {
        real().setSubItem(row, index, text);
    }
    [[nodiscard]] bool checked(int row) const override { return real().checked(row); }
    void setChecked(int row, bool checked) override {
        real(Breakage::What::ticking).setChecked(row, checked);
    }
    [[nodiscard]] RowColour rowColour(int row) const override { return real().rowColour(row); }
    void setRowColour(int row, RowColour colour) override { real().setRowColour(row, colour); }
    [[nodiscard]] int selectedRow() const override { return real().selectedRow(); }
    [[nodiscard]] bool selected(int row) const override { return real().selected(row); }
    void select(int row) override { real().select(row); }
    void deselect(int row) override { real().deselect(row); }
    void setMultiSelect(bool multiSelect) override { real().setMultiSelect(multiSelect); }
    [[nodiscard]] bool multiSelect() const override { return real().multiSelect(); }
    void setSorted(bool sorted) override { real().setSorted(sorted); }
    [[nodiscard]] bool sorted() const override { return real().sorted(); }
    void setSortKey(int key) override { real().setSortKey(key); }
    [[nodiscard]] int sortKey() const override { return real().sortKey(); }
    [[nodiscard]] int findItem(std::u16string_view text, FindMatch match) const override {
        return real().findItem(text, match);
    }

private:
    [[nodiscard]] ListView &real(Breakage::What what = Breakage::What::nothing) const {
        breakage_.meet(what);
        return real_;
    }
    template <class... Parameters, class... Arguments>
    static void run(const std::function<void(Parameters...)> &handler, Arguments... arguments) {
        if (handler) {
            handler(arguments...);
        }
    }

    ListView &real_;
    const Breakage &breakage_;
};

/// Makes windows of another toolkit and puts a breakable list into them.
class BreakableToolkit final : public Toolkit {
public:
    BreakableToolkit(Toolkit &real, const Breakage &breakage) : real_(real), breakage_(breakage) {}

    [[nodiscard]] std::unique_ptr<Window> createWindow(const WindowDesign &design) override {
        return std::make_unique<BreakableWindow>(real_.createWindow(design), breakage_);
    }
    std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                                std::int32_t style) override {
        return real_.showMessageBox(title, text, style);
    }
    [[nodiscard]] Clipboard &clipboard() override { return real_.clipboard(); }

private:
    class BreakableWindow final : public Window {
    public:
        BreakableWindow(std::unique_ptr<Window> real, const Breakage &breakage)
            : real_(std::move(real)), breakage_(breakage) {}

        [[nodiscard]] std::u16string caption() const override { return real_->caption(); }
        void setCaption(const std::u16string &caption) override { real_->setCaption(caption); }
        void showModal() override { real_->showModal(); }
        void close() override { real_->close(); }

    private:
        [[nodiscard]] Control *find(std::u16string_view name) override {
            Control &found = real_->get<Control>(name);
            if (name != breakage_.list) {
                return &found;
            }
            if (!list_) {
                list_ = std::make_unique<BreakableList>(dynamic_cast<ListView &>(found), breakage_);
            }
            return list_.get();
        }

        std::unique_ptr<Window> real_;
        const Breakage &breakage_;
        std::unique_ptr<BreakableList> list_;
    };

    Toolkit &real_;
    const Breakage &breakage_;
};

} // namespace kvex::test
