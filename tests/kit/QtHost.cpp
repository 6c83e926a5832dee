// A host that is a Qt program with a main loop of its own:
//
//   qt_host DATABASE           a window with a button that edits the rules
//   qt_host DATABASE unseen    edits the rules without a window of its own, then ends with 7
//   qt_host DATABASE thread    calls from another thread, prints what the log says, then ends
//
// Prints each result. The window's program also prints a line at each beat of its timer.
#include "kvex/ComPointer.h"
#include "kvex/HostSuite.h"
#include "kvex/RuleUI.h"
#include "kvex/SuiteConfiguration.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include <iostream>
#include <thread>

namespace {

kvex::ComPointer<ISuiteConfiguration> takeSuite(const char *database) {
    for (const CLSID &served : {CLSID_Utility, CLSID_ManageContacts, CLSID_SuiteConfiguration}) {
        CoLoadServer("libKVEXHostSuite.so", served);
    }
    CoLoadServer("libKVEXMessageRules.so", CLSID_RuleUI);
    kvex::ComPointer<ISuiteConfiguration> suite;
    if (FAILED(kvex::createInstance(CLSID_SuiteConfiguration, suite))) {
        std::abort();
    }
    suite->Configure(kvex::Bstr::fromUtf8(database).get(), nullptr, nullptr);
    return suite;
}

void editRules() {
    LONG result = -1;
    kvex::ComPointer<IRuleUI> rules;
    if (kvex::createInstance(CLSID_RuleUI, rules) == S_OK) {
        rules->ShowRules(kvex::Bstr(u"1").get(), nullptr, &result);
    }
    std::cout << "result " << result << std::endl;
}

int withWindow() {
    QPushButton button("Edit");
    button.setWindowTitle("Host");
    QObject::connect(&button, &QPushButton::clicked, [] { editRules(); });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [] { std::cout << "beat" << std::endl; });
    timer.start(100);
    button.show();
    return QApplication::exec();
}

int unseen() {
    QTimer::singleShot(0, [] {
        editRules();
        QTimer::singleShot(0, [] { QTimer::singleShot(0, [] { QApplication::exit(7); }); });
    });
    return QApplication::exec();
}

int fromThread(ISuiteConfiguration &suite) {
    std::thread(editRules).join();
    kvex::Bstr file;
    kvex::Bstr description;
    LONG number = 0;
    suite.GetLastError(file.put(), description.put(), &number);
    std::cout << number << ' ' << description.utf8() << std::endl;
    return 0;
}

} // namespace

int main(int count, char **arguments) {
    const QApplication application(count, arguments);
    const auto suite = takeSuite(arguments[1]);
    const std::string mode = count > 2 ? arguments[2] : "";
    if (mode == "thread") {
        return fromThread(*suite);
    }
    return mode == "unseen" ? unseen() : withWindow();
}
