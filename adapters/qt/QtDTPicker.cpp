#include "adapters/qt/QtDTPicker.h"

#include "adapters/qt/QText.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QScopedValueRollback>

#include <functional>

namespace kvex::qt {
namespace {

/// An access key gives this panel the focus. The panel passes it on.
class Panel final : public QWidget {
public:
    explicit Panel(QWidget *parent) : QWidget(parent) { setFocusPolicy(Qt::ClickFocus); }

    std::function<QWidget &()> target;

protected:
    void focusInEvent(QFocusEvent *event) override { target().setFocus(event->reason()); }
};

} // namespace

QtDTPicker::QtDTPicker(const ControlDesign &design, const std::u16string &window, QWidget &parent)
    : QtControl(design, window, *new Panel(&parent), design.hour, design.minute, design.second),
      tick_(*new QCheckBox(&widget())), field_(*new DateTimeEdit(&widget(), toQt(design.format))) {
    tick_.setObjectName(toQt(name_ + u"HasValue"));
    field_.setObjectName(toQt(name_ + u"Value"));
    auto &row = *new QHBoxLayout(&widget());
    row.setContentsMargins(0, 0, 0, 0);
    row.addWidget(&tick_);
    row.addWidget(&field_, 1);
    dynamic_cast<Panel &>(widget()).target = [this]() -> QWidget & { return focusTarget(); };
    valueSet();
    QObject::connect(&tick_, &QCheckBox::clicked, &tick_, [this] { ticked(); });
    QObject::connect(&field_, &QDateTimeEdit::dateTimeChanged, &field_,
                     [this](const QDateTime &value) { edited(value); });
}

QWidget &QtDTPicker::focusTarget() const {
    return hasValue() ? static_cast<QWidget &>(field_) : tick_;
}

void QtDTPicker::setSpokenName(const QString &name) {
    field_.setAccessibleName(name);
    tick_.setAccessibleName(name + QStringLiteral(": has a value"));
}

void QtDTPicker::valueSet() {
    if (fieldLeads_) {
        return;
    }
    tick_.setChecked(hasValue());
    field_.setEnabled(hasValue());
    field_.show(hasValue() ? QDateTime(QDate(year(), month(), day()),
                                       QTime(hour(), minute(), second()), Qt::UTC)
                           : QDateTime());
}

void QtDTPicker::ticked() {
    if (tick_.isChecked()) {
        restoreValue();
    } else {
        clearValue();
    }
    run(onChange);
}

void QtDTPicker::edited(const QDateTime &value) {
    const QDate date = value.date();
    const QTime time = value.time();
    {
        const QScopedValueRollback leads(fieldLeads_, true);
        setDate(date.year(), date.month(), date.day());
        setTime(time.hour(), time.minute(), time.second());
    }
    run(onChange);
}

} // namespace kvex::qt
