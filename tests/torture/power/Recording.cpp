#include "tests/torture/power/Recording.h"

#include "adapters/sqlite/Provider.h"
#include "platform/Text.h"
#include "tests/host/TemporaryFolder.h"

#include <fstream>
#include <stdexcept>

namespace kvex::torture {
namespace {

bool changesFiles(FileCall call) {
    return call == FileCall::write || call == FileCall::truncate || call == FileCall::sync ||
           call == FileCall::remove;
}

} // namespace

Disk diskOf(const std::filesystem::path &folder) {
    Disk disk;
    for (const auto &entry : std::filesystem::directory_iterator(folder)) {
        disk[entry.path().filename()] = host::readFile(entry.path());
    }
    return disk;
}

void writeDisk(const Disk &disk, const std::filesystem::path &folder) {
    for (const auto &entry : std::filesystem::directory_iterator(folder)) {
        std::filesystem::remove(entry.path());
    }
    for (const auto &[file, content] : disk) {
        std::ofstream(folder / file, std::ios::binary) << content;
    }
}

Recording record(const Scenario &scenario, const std::filesystem::path &folder) {
    Recording recording;
    recording.before = diskOf(folder);
    const WatchedFiles files([&](const FileOperation &operation) {
        if (changesFiles(operation.call) && !operation.file.empty()) {
            recording.steps.push_back(
                {operation.call, std::filesystem::path(operation.file).filename(), operation.offset,
                 std::string(operation.content), operation.syncsFolder});
        }
        return Answer();
    });
    test::Editor editor(sqlite::provider(), fromUtf8((folder / "rules.db").string()));
    scenario.play(editor, [&](const std::function<void()> &button) {
        recording.pressed = recording.steps.size();
        button();
        recording.stored = recording.steps.size();
    });
    if (!editor.toolkit.problems().empty() || !editor.utility.log.empty()) {
        throw std::runtime_error(scenario.name + " failed without a crash");
    }
    return recording;
}

} // namespace kvex::torture
