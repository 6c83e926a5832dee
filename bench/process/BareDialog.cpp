// A Qt program that only shows one dialog: bare_dialog [widgets]. Without the argument the dialog
// is empty, with it the dialog has the widgets and texts of the rule editor.
#include <QApplication>
#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QTreeWidget>

#include <string_view>

namespace {

void addList(QBoxLayout &layout, const QString &caption, const QStringList &rows,
             const QString &button) {
    auto *list = new QTreeWidget;
    list->setHeaderHidden(true);
    list->setRootIsDecorated(false);
    for (const QString &row : rows) {
        auto *item = new QTreeWidgetItem(list, QStringList(row));
        item->setCheckState(0, Qt::Unchecked);
    }
    layout.addWidget(new QLabel(caption));
    layout.addWidget(list);
    layout.addWidget(new QPushButton(button), 0, Qt::AlignRight);
}

void fill(QDialog &dialog) {
    auto &layout = *new QVBoxLayout(&dialog);
    addList(layout, "1. Select the Conditions for your rule",
            {"Ignore this Rule for Service messages", "Where the message is From specified people",
             "Where the message is received through specified Accounts",
             "Where the message content contains specified Words",
             "Where the message is received within specified Date/Time", "For All Messages"},
            "&Edit Currently Selected Condition");
    addList(layout, "2. Select the Actions for your rule",
            {"Distribute to specific users", "Send an Automatic Reply",
             "Send an Alert to specified people", "Delete it", "Do not process any more Rules"},
            "Configure Currently &Selected Action");
    layout.addWidget(new QLabel("3. Rule Description"));
    layout.addWidget(new QLabel("Select your Conditions and Actions first, then specify their "
                                "values in Description"));
    auto *description = new QTextEdit("Apply this Rule after the message arrives");
    description->setReadOnly(true);
    layout.addWidget(description);
    layout.addWidget(new QLabel("4. Rule Name"));
    layout.addWidget(new QLineEdit);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(new QPushButton("OK"));
    buttons->addWidget(new QPushButton("&Cancel"));
    layout.addLayout(buttons);
}

} // namespace

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    QDialog dialog;
    if (argc > 1 && std::string_view(argv[1]) == "widgets") {
        fill(dialog);
    }
    return dialog.exec();
}
