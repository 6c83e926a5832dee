#include "tests/torture/storage/WatchedFiles.h"

#include <utility>

namespace kvex::torture {
namespace {

/// SQLite reserves memory for this object, and behind it for the real file.
struct WatchedFile : sqlite3_file {
    const WatchedFiles *files;
    const char *path;
    /// The next sync makes the folder safe, too: SQLite wants this of a journal that it may have
    /// created.
    bool nextSyncsFolder;

    [[nodiscard]] sqlite3_file &real() { return *reinterpret_cast<sqlite3_file *>(this + 1); }
    [[nodiscard]] Answer ask(FileCall call, std::int64_t offset = 0,
                             std::string_view content = {}) const {
        return files->ask({call, path ? path : "", offset, content});
    }
};

WatchedFile &watched(sqlite3_file *file) {
    return *static_cast<WatchedFile *>(file);
}

/// Asks, then calls the real file's function with the same arguments.
template <class... Parameters, class... Arguments>
int pass(const Answer &answer, sqlite3_file *file,
         int (*sqlite3_io_methods::*function)(sqlite3_file *, Parameters...),
         Arguments... arguments) {
    if (answer.code != SQLITE_OK) {
        return answer.code;
    }
    sqlite3_file &real = watched(file).real();
    return (real.pMethods->*function)(&real, arguments...);
}

int close(sqlite3_file *file) {
    return pass({}, file, &sqlite3_io_methods::xClose);
}

int read(sqlite3_file *file, void *to, int size, sqlite3_int64 offset) {
    return pass(watched(file).ask(FileCall::read, offset), file, &sqlite3_io_methods::xRead, to,
                size, offset);
}

int write(sqlite3_file *file, const void *from, int size, sqlite3_int64 offset) {
    const Answer answer = watched(file).ask(
        FileCall::write, offset, {static_cast<const char *>(from), static_cast<std::size_t>(size)});
    if (answer.code != SQLITE_OK && answer.written > 0) {
        pass({}, file, &sqlite3_io_methods::xWrite, from, static_cast<int>(answer.written), offset);
    }
    return pass(answer, file, &sqlite3_io_methods::xWrite, from, size, offset);
}

int truncate(sqlite3_file *file, sqlite3_int64 size) {
    return pass(watched(file).ask(FileCall::truncate, size), file, &sqlite3_io_methods::xTruncate,
                size);
}

int sync(sqlite3_file *file, int /*flags*/) {
    WatchedFile &ours = watched(file);
    const bool syncsFolder = std::exchange(ours.nextSyncsFolder, false);
    return ours.files
        ->ask({.call = FileCall::sync,
               .file = ours.path ? ours.path : "",
               .syncsFolder = syncsFolder})
        .code;
}

int size(sqlite3_file *file, sqlite3_int64 *to) {
    return pass(watched(file).ask(FileCall::size), file, &sqlite3_io_methods::xFileSize, to);
}

int lock(sqlite3_file *file, int level) {
    return pass(watched(file).ask(FileCall::lock), file, &sqlite3_io_methods::xLock, level);
}

int unlock(sqlite3_file *file, int level) {
    return pass({}, file, &sqlite3_io_methods::xUnlock, level);
}

int checkReservedLock(sqlite3_file *file, int *to) {
    return pass({}, file, &sqlite3_io_methods::xCheckReservedLock, to);
}

int control(sqlite3_file *file, int request, void *value) {
    return pass({}, file, &sqlite3_io_methods::xFileControl, request, value);
}

int sectorSize(sqlite3_file *file) {
    return pass({}, file, &sqlite3_io_methods::xSectorSize);
}

int characteristics(sqlite3_file *file) {
    return pass({}, file, &sqlite3_io_methods::xDeviceCharacteristics);
}

int mapShared(sqlite3_file *file, int region, int size, int extend, void volatile **to) {
    return pass(watched(file).ask(FileCall::mapShared), file, &sqlite3_io_methods::xShmMap, region,
                size, extend, to);
}

int lockShared(sqlite3_file *file, int offset, int count, int flags) {
    const bool takes = (flags & SQLITE_SHM_LOCK) != 0;
    return pass(takes ? watched(file).ask(FileCall::lockShared, offset) : Answer(), file,
                &sqlite3_io_methods::xShmLock, offset, count, flags);
}

void shareBarrier(sqlite3_file *file) {
    sqlite3_file &real = watched(file).real();
    real.pMethods->xShmBarrier(&real);
}

int unmapShared(sqlite3_file *file, int remove) {
    return pass({}, file, &sqlite3_io_methods::xShmUnmap, remove);
}

/// The second version of the methods: a file that SQLite may share, but not map as a whole.
constexpr sqlite3_io_methods methods = {2,
                                        close,
                                        read,
                                        write,
                                        truncate,
                                        sync,
                                        size,
                                        lock,
                                        unlock,
                                        checkReservedLock,
                                        control,
                                        sectorSize,
                                        characteristics,
                                        mapShared,
                                        lockShared,
                                        shareBarrier,
                                        unmapShared,
                                        nullptr,
                                        nullptr};

const WatchedFiles &filesOf(const sqlite3_vfs *vfs) {
    return *static_cast<const WatchedFiles *>(vfs->pAppData);
}

int open(sqlite3_vfs *vfs, const char *path, sqlite3_file *file, int flags, int *opened) {
    const WatchedFiles &files = filesOf(vfs);
    file->pMethods = nullptr;
    if (const Answer answer = files.ask({FileCall::open, path ? path : ""});
        answer.code != SQLITE_OK) {
        return answer.code;
    }
    WatchedFile &ours = watched(file);
    ours.files = &files;
    ours.path = path;
    ours.nextSyncsFolder = (flags & SQLITE_OPEN_CREATE) != 0 &&
                           (flags & (SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_WAL)) != 0;
    const int code = files.real().xOpen(&files.real(), path, &ours.real(), flags, opened);
    if (ours.real().pMethods) {
        file->pMethods = &methods;
    }
    return code;
}

int remove(sqlite3_vfs *vfs, const char *path, int durable) {
    const WatchedFiles &files = filesOf(vfs);
    const Answer answer =
        files.ask({.call = FileCall::remove, .file = path, .syncsFolder = durable != 0});
    return answer.code == SQLITE_OK ? files.real().xDelete(&files.real(), path, 0) : answer.code;
}

int exists(sqlite3_vfs *vfs, const char *path, int flags, int *result) {
    const WatchedFiles &files = filesOf(vfs);
    const Answer answer = files.ask({FileCall::exists, path});
    return answer.code == SQLITE_OK ? files.real().xAccess(&files.real(), path, flags, result)
                                    : answer.code;
}

/// SQLite waits for a lock that another connection holds; here no other one does.
int sleep(sqlite3_vfs * /*vfs*/, int microseconds) {
    return microseconds;
}

} // namespace

WatchedFiles::WatchedFiles(Watch watch)
    : watch_(std::move(watch)), real_(*sqlite3_vfs_find(nullptr)), watched_(real_) {
    watched_.zName = "watched";
    watched_.pAppData = this;
    watched_.szOsFile += static_cast<int>(sizeof(WatchedFile));
    watched_.xOpen = open;
    watched_.xDelete = remove;
    watched_.xAccess = exists;
    watched_.xSleep = sleep;
    sqlite3_vfs_register(&watched_, 1);
}

WatchedFiles::~WatchedFiles() {
    sqlite3_vfs_unregister(&watched_);
    sqlite3_vfs_register(&real_, 1);
}

} // namespace kvex::torture
