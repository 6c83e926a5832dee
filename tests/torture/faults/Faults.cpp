#include "tests/torture/faults/Faults.h"

#include "tests/recordset/FailingMemory.h"
#include "tests/torture/faults/SqliteMemory.h"

#include <optional>

namespace kvex::torture {
namespace {

using test::WatchedDatabase;

enum class DriverLoss { refused, lostBefore, lostAfter };

class DriverFault final : public Fault {
public:
    DriverFault(WatchedDatabase &database, DriverLoss loss) : database_(database), loss_(loss) {}

    void arm(std::uint64_t number) override {
        const int calls = static_cast<int>(number);
        constexpr std::int32_t refusal = -5;
        switch (loss_) {
        case DriverLoss::refused:
            return database_.refuseAfter(calls, refusal);
        case DriverLoss::lostBefore:
            return database_.loseAfter(calls);
        case DriverLoss::lostAfter:
            return database_.loseAnswerAfter(calls);
        }
    }
    bool disarm() override { return !database_.cancel(); }

private:
    WatchedDatabase &database_;
    DriverLoss loss_;
};

enum class FileLoss { error, full, torn, busy };

int errorOf(FileCall call) {
    switch (call) {
    case FileCall::open:
        return SQLITE_CANTOPEN;
    case FileCall::read:
        return SQLITE_IOERR_READ;
    case FileCall::write:
        return SQLITE_IOERR_WRITE;
    case FileCall::truncate:
        return SQLITE_IOERR_TRUNCATE;
    case FileCall::sync:
        return SQLITE_IOERR_FSYNC;
    case FileCall::size:
        return SQLITE_IOERR_FSTAT;
    case FileCall::lock:
        return SQLITE_IOERR_LOCK;
    case FileCall::mapShared:
        return SQLITE_IOERR_SHMMAP;
    case FileCall::lockShared:
        return SQLITE_IOERR_SHMLOCK;
    case FileCall::remove:
        return SQLITE_IOERR_DELETE;
    case FileCall::exists:
        return SQLITE_IOERR_ACCESS;
    }
    return SQLITE_IOERR;
}

class FileFault final : public Fault {
public:
    FileFault(FileLoss loss, Lasting lasting) : loss_(loss), countdown_(lasting) {}

    void arm(std::uint64_t number) override { countdown_.arm(number); }
    bool disarm() override { return countdown_.disarm(); }
    Answer at(const FileOperation &operation) override {
        return concerns(operation.call) && countdown_.strikes() ? answer(operation) : Answer();
    }

private:
    [[nodiscard]] bool concerns(FileCall call) const {
        switch (loss_) {
        case FileLoss::full:
        case FileLoss::torn:
            return call == FileCall::write;
        case FileLoss::busy:
            return call == FileCall::lock || call == FileCall::lockShared;
        case FileLoss::error:
            break;
        }
        return true;
    }
    [[nodiscard]] Answer answer(const FileOperation &operation) const {
        switch (loss_) {
        case FileLoss::full:
            return {SQLITE_FULL};
        case FileLoss::torn:
            return {SQLITE_IOERR_WRITE, operation.content.size() / 2};
        case FileLoss::busy:
            return {SQLITE_BUSY};
        case FileLoss::error:
            break;
        }
        return {errorOf(operation.call)};
    }

    FileLoss loss_;
    Countdown countdown_;
};

class SqliteMemoryFault final : public Fault {
public:
    explicit SqliteMemoryFault(Lasting lasting) : countdown_(lasting) {
        failSqliteMemoryBy(countdown_);
    }

    void arm(std::uint64_t number) override { countdown_.arm(number); }
    bool disarm() override { return countdown_.disarm(); }

private:
    Countdown countdown_;
};

class NewFault final : public Fault {
public:
    explicit NewFault(bool lasts) : lasts_(lasts) {}

    void arm(std::uint64_t number) override { failing_.emplace(static_cast<int>(number), lasts_); }
    bool disarm() override {
        const bool failed = test::FailingMemory::hasFailed();
        failing_.reset();
        return failed;
    }

private:
    bool lasts_;
    std::optional<test::FailingMemory> failing_;
};

template <DriverLoss loss> std::unique_ptr<Fault> ofDriver(WatchedDatabase &database) {
    return std::make_unique<DriverFault>(database, loss);
}

template <FileLoss loss, Lasting lasting>
std::unique_ptr<Fault> ofFiles(WatchedDatabase & /*database*/) {
    return std::make_unique<FileFault>(loss, lasting);
}

template <Lasting lasting> std::unique_ptr<Fault> ofSqliteMemory(WatchedDatabase & /*database*/) {
    return std::make_unique<SqliteMemoryFault>(lasting);
}

template <bool lasts> std::unique_ptr<Fault> ofNew(WatchedDatabase & /*database*/) {
    return std::make_unique<NewFault>(lasts);
}

} // namespace

std::vector<FaultKind> faultKinds() {
    using enum Lasting;
    return {
        {"driver", "a call is refused", &ofDriver<DriverLoss::refused>, {.passes = true}},
        {"driver", "a call is lost", &ofDriver<DriverLoss::lostBefore>, {.keepsOrder = true}},
        {"driver", "an answer is lost", &ofDriver<DriverLoss::lostAfter>, {.keepsOrder = true}},
        {"file", "an operation fails", &ofFiles<FileLoss::error, once>, {.passes = true}},
        {"file", "every operation fails", &ofFiles<FileLoss::error, forGood>, {}},
        {"file", "the disk is full once", &ofFiles<FileLoss::full, once>, {.passes = true}},
        {"file", "the disk is full", &ofFiles<FileLoss::full, forGood>, {}},
        {"file", "a write is torn", &ofFiles<FileLoss::torn, once>, {.passes = true}},
        {"file", "every write is torn", &ofFiles<FileLoss::torn, forGood>, {}},
        {"file", "a lock is busy", &ofFiles<FileLoss::busy, once>, {.passes = true}},
        {"file", "every lock is busy", &ofFiles<FileLoss::busy, forGood>, {}},
        {"SQLite's memory", "an allocation fails", &ofSqliteMemory<once>, {.passes = true}},
        {"SQLite's memory", "every allocation fails", &ofSqliteMemory<forGood>, {}},
        {"new", "an allocation fails", &ofNew<false>, {.passes = true}},
        {"new", "every allocation fails", &ofNew<true>, {.passes = true, .canTell = false}},
    };
}

} // namespace kvex::torture
