#include "adapters/qt/QtApplication.h"

#include "adapters/qt/DisplayProbe.h"
#include "adapters/qt/ReadableStyle.h"
#include "platform/Error.h"

#include <QApplication>
#include <QThread>

#include <array>
#include <cerrno>
#include <clocale>
#include <string>

namespace kvex::qt {
namespace {

[[noreturn]] void refuse(std::u16string why) {
    throw Error(error_number::cannotCreateObject, std::move(why));
}

/// Qt keeps references to the arguments for as long as the application lives.
struct Arguments {
    std::string program = program_invocation_name;
    std::string option = "-platform";
    std::string platform;
    std::array<char *, 4> values{};
    int count = 3;
};

void createApplication(std::string platform) {
    auto &arguments = *new Arguments;
    arguments.platform = std::move(platform);
    arguments.values = {arguments.program.data(), arguments.option.data(),
                        arguments.platform.data(), nullptr};
    // Qt switches the process to the user's locale; numbers must still read and print the same.
    const std::string numbers = std::setlocale(LC_NUMERIC, nullptr);
    static auto *const application = new QApplication(arguments.count, arguments.values.data());
    std::setlocale(LC_NUMERIC, numbers.c_str());
    if (application->style()->name() == u"fusion") {
        QApplication::setStyle(new ReadableStyle(application->style()->name()));
    }
    // The host outlives its windows.
    application->setQuitOnLastWindowClosed(false);
}

} // namespace

void requireApplication() {
    const QCoreApplication *existing = QCoreApplication::instance();
    if (existing == nullptr) {
        const auto platform = usablePlatform();
        if (!platform) {
            refuse(u"No window can be shown: there is no display that can be reached. Start the "
                   u"program in a graphical session, or set DISPLAY.");
        }
        createApplication(platform->name);
        return;
    }
    if (dynamic_cast<const QApplication *>(existing) == nullptr) {
        refuse(u"No window can be shown: this program runs without windows.");
    }
    if (existing->thread() != QThread::currentThread()) {
        refuse(u"No window can be shown from this thread: another thread of the program owns the "
               u"windows.");
    }
}

QWidget *windowToShowOver() {
    QWidget *modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

} // namespace kvex::qt
