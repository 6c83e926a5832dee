#include "adapters/qt/DateTimeEdit.h"

#include "adapters/controls/PickerValue.h"

#include <QCalendarWidget>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTextCharFormat>

namespace kvex::qt {
namespace {

/// To Qt "yyy" is a year of two digits, and a "y" behind it.
QString withWholeYear(QString format) {
    static const QRegularExpression year(QStringLiteral("y{3,}"));
    return format.replace(year, QStringLiteral("yyyy"));
}

} // namespace

DateTimeEdit::DateTimeEdit(QWidget *parent, const QString &format) : QDateTimeEdit(parent) {
    setDisplayFormat(withWholeYear(format));
    setDateRange({controls::PickerValue::firstYear, 1, 1},
                 {controls::PickerValue::lastYear, 12, 31});
    const bool showsDate = (displayedSections() & DateSections_Mask) != NoSection;
    setCalendarPopup(showsDate);
    if (showsDate) {
        QCalendarWidget &calendar = *calendarWidget();
        calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
        // Red weekends would be the one colour that no theme chose.
        calendar.setWeekdayTextFormat(Qt::Saturday, {});
        calendar.setWeekdayTextFormat(Qt::Sunday, {});
    }
}

void DateTimeEdit::show(const QDateTime &value) {
    const QSignalBlocker quiet(this);
    empty_ = !value.isValid();
    setDateTime(empty_ ? dateTime() : value);
}

QString DateTimeEdit::textFromDateTime(const QDateTime &value) const {
    // For the room that it may take Qt asks for other values, too.
    const bool isShown = value == dateTime();
    return empty_ && isShown ? QString() : QDateTimeEdit::textFromDateTime(value);
}

/// Its parts are walked through by the arrow keys.
bool DateTimeEdit::focusNextPrevChild(bool next) {
    // Past Qt's own, which goes from part to part.
    return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace kvex::qt
