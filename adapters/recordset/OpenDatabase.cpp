#include "adapters/recordset/OpenDatabase.h"

#include "platform/Error.h"

#include <utility>

namespace kvex::recordset {

void OpenDatabase::requireWritable() const {
    if (!readOnlyReason_.empty()) {
        throw Error(error_number::badArgument, readOnlyReason_, u"KVEXMessageRules",
                    HelpContext::newerSchema);
    }
}

void OpenDatabase::begin() {
    driver_->begin();
    inTransaction_ = true;
}

void OpenDatabase::commit() {
    driver_->commit();
    inTransaction_ = false;
    undos_.clear();
    kept_ = 0;
}

void OpenDatabase::rollback() noexcept {
    if (!inTransaction_) {
        return;
    }
    driver_->rollback();
    inTransaction_ = false;
    while (kept_ > 0) {
        undos_[--kept_]();
    }
    undos_.clear();
}

void OpenDatabase::prepare(Undo undo) {
    undos_.resize(kept_);
    undos_.push_back(std::move(undo));
}

void OpenDatabase::keepPrepared() noexcept {
    kept_ = undos_.size();
}

} // namespace kvex::recordset
