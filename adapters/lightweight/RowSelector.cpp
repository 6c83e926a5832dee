#include "adapters/lightweight/RowSelector.h"

#include <cstdlib>

namespace kvex::lightweight {
namespace {

/// Sets a flag and sets it back at the end.
class Acting {
public:
    explicit Acting(bool &flag) : flag_(flag) { flag_ = true; }
    ~Acting() { flag_ = false; }
    Acting(const Acting &) = delete;
    Acting &operator=(const Acting &) = delete;

private:
    bool &flag_;
};

} // namespace

int RowSelector::current() const {
    const int selected = rows_.selectedRow();
    return selected > 0 && current_ > 0 ? current_ : selected;
}

void RowSelector::forget() {
    if (!isActing_) {
        current_ = anchor_ = 0;
        isRange_ = false;
    }
}

void RowSelector::select(int row) {
    rows_.selectOnly(row);
    forget();
}

void RowSelector::goTo(int row) {
    forget();
    current_ = row;
}

void RowSelector::toggle(int row) {
    const Acting acting(isActing_);
    const bool isDropped = rows_.selected(row);
    isDropped ? rows_.deselect(row) : rows_.select(row);
    current_ = row;
    anchor_ = row;
    isRange_ = false;
}

/// Goes row by row. A step away from the beginning of the range selects a row; a step towards it
/// deselects one.
void RowSelector::extendTo(int row) {
    const int from = current();
    if (!rows_.multiSelect() || from == 0) {
        select(row);
        return;
    }
    const Acting acting(isActing_);
    anchor_ = anchor_ > 0 ? anchor_ : from;
    int at = from;
    if (!isRange_) {
        rows_.selectOnly(anchor_);
    }
    while (at != row) {
        const int next = at < row ? at + 1 : at - 1;
        if (std::abs(next - anchor_) > std::abs(at - anchor_)) {
            rows_.select(next);
        } else {
            rows_.deselect(at);
        }
        at = next;
    }
    current_ = 0;
    isRange_ = true;
}

/// The current row stays.
void RowSelector::selectAll() {
    if (!rows_.multiSelect()) {
        return;
    }
    const int stays = current();
    for (int row = 1; row <= rows_.rowCount(); ++row) {
        rows_.select(row);
    }
    if (stays > 0) {
        rows_.select(stays);
    }
    forget();
}

} // namespace kvex::lightweight
