// The address book with many contacts: opens, ticks two, unticks one, presses Select.
#include "adapters/qt/QtToolkit.h"
#include "bench/support/Timing.h"
#include "bench/windows/Painting.h"
#include "host/addressbook/AddressBookWindow.h"
#include "platform/Text.h"

#include <QPushButton>
#include <QTreeView>

namespace kvex::bench {
namespace {

std::vector<host::Contact> contacts(std::size_t count) {
    std::vector<host::Contact> list;
    for (std::size_t i = 0; i < count; ++i) {
        const std::u16string id = toText(static_cast<std::int64_t>(i + 1));
        list.push_back(
            {id, u"Contact " + id, toText(static_cast<std::int64_t>(9'800'000'000 + i))});
    }
    return list;
}

void tick(QTreeView &list, int row, bool ticked) {
    untilPainted(list.objectName(), [&] {
        list.model()->setData(list.model()->index(row, 0), ticked ? Qt::Checked : Qt::Unchecked,
                              Qt::CheckStateRole);
    });
}

void addressBook(benchmark::State &state) {
    requireDisplay();
    qt::QtToolkit toolkit;
    const std::vector<host::Contact> all = contacts(sizeOf(state));
    const QString name = QStringLiteral("lvwContacts");
    for (auto _ : state) {
        std::vector<host::Contact> copy = all;
        bool played = false;
        Stopwatch watch(state);
        const Painting painting(name, [&] {
            if (std::exchange(played, true)) {
                return;
            }
            auto &list = shown<QTreeView>(name);
            tick(list, 1, true);
            tick(list, 2, true);
            tick(list, 1, false);
            shown<QPushButton>(QStringLiteral("cmdSelect")).click();
        });
        const std::size_t chosen =
            host::AddressBookWindow(toolkit, std::move(copy), true).show().size();
        watch.stop();
        if (chosen != 1) {
            state.SkipWithError("the address book returned another choice");
        }
    }
}
BENCHMARK(addressBook)
    ->Name("address_book")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Arg(5'000)
    ->Arg(50'000);

} // namespace
} // namespace kvex::bench
