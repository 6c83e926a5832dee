#include "adapters/qt/DateTimeEdit.h"

#include "adapters/controls/PickerValue.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTextCharFormat>

#include <algorithm>

namespace kvex::qt {
namespace {

/// To Qt "yyy" is a year of two digits, and a "y" behind it.
QString withWholeYear(QString format) {
    static const QRegularExpression year(QStringLiteral("y{3,}"));
    return format.replace(year, QStringLiteral("yyyy"));
}

constexpr int noDigit = -1;

int digitOf(const QKeyEvent &event) {
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const QString text = event.text();
    const bool isDigit = text.size() == 1 && text.front() >= u'0' && text.front() <= u'9';
    return isPlain && isDigit ? text.front().digitValue() : noDigit;
}

} // namespace

DateTimeEdit::DateTimeEdit(QWidget *parent, const QString &format) : QDateTimeEdit(parent) {
    setTimeSpec(Qt::UTC);
    setDisplayFormat(withWholeYear(format));
    setDateTimeRange({{controls::PickerValue::firstYear, 1, 1}, {0, 0}, Qt::UTC},
                     {{controls::PickerValue::lastYear, 12, 31}, {23, 59, 59, 999}, Qt::UTC});
    const bool showsDate = (displayedSections() & DateSections_Mask) != NoSection;
    setCalendarPopup(showsDate);
    connect(lineEdit(), &QLineEdit::cursorPositionChanged, this, [this] { firstDigit_.reset(); });
    if (showsDate) {
        QCalendarWidget &calendar = *calendarWidget();
        calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
        // Red weekends would be the one colour that no theme chose.
        calendar.setWeekdayTextFormat(Qt::Saturday, {});
        calendar.setWeekdayTextFormat(Qt::Sunday, {});
        // Not every dark theme darkens the colour that Qt puts behind the names of the days.
        QTextCharFormat dayNames;
        dayNames.setBackground(QColor(Qt::transparent));
        calendar.setHeaderTextFormat(dayNames);
    }
}

void DateTimeEdit::show(const QDateTime &value) {
    const QSignalBlocker quiet(this);
    empty_ = !value.isValid();
    setDateTime(empty_ ? dateTime() : value);
}

/// With room for the caret behind the text.
QSize DateTimeEdit::sizeHint() const {
    return QDateTimeEdit::sizeHint() + QSize(fontMetrics().averageCharWidth(), 0);
}

QString DateTimeEdit::textFromDateTime(const QDateTime &value) const {
    // For the room that it may take Qt asks for other values, too.
    const bool isShown = value == dateTime();
    return empty_ && isShown ? QString() : QDateTimeEdit::textFromDateTime(value);
}

/// The value that a whole text in range says; what the format does not show stays. Qt would keep a
/// day that it remembers from before the text was replaced.
QDateTime DateTimeEdit::wholeValue(const QString &text) const {
    const QDateTime said = QDateTime::fromString(text, displayFormat());
    const Sections shown = displayedSections();
    const QDateTime value((shown & DateSections_Mask) != NoSection ? said.date() : date(),
                          (shown & TimeSections_Mask) != NoSection ? said.time() : time(), Qt::UTC);
    const bool isInRange = value >= minimumDateTime() && value <= maximumDateTime();
    return said.isValid() && isInRange ? value : QDateTime();
}

QValidator::State DateTimeEdit::validate(QString &text, int &position) const {
    return wholeValue(text).isValid() ? QValidator::Acceptable
                                      : QDateTimeEdit::validate(text, position);
}

QDateTime DateTimeEdit::dateTimeFromText(const QString &text) const {
    const QDateTime value = wholeValue(text);
    return value.isValid() ? value : QDateTimeEdit::dateTimeFromText(text);
}

/// A day may be typed before its month, whatever month is shown: the month and the year typed
/// after it bring it back as far as they have it.
void DateTimeEdit::keyPressEvent(QKeyEvent *event) {
    const int digit = digitOf(*event);
    if (digit == noDigit) {
        QDateTimeEdit::keyPressEvent(event);
        return;
    }
    if (date() != typedDate_) {
        typedDay_ = 0;
    }
    if (currentSection() == DaySection) {
        typeDay(digit);
    } else {
        typeIntoPart(event);
    }
    typedDate_ = date();
}

/// Into a part that is whole Qt takes a digit only when the part is selected.
void DateTimeEdit::typeIntoPart(QKeyEvent *digit) {
    const auto isWhole = [this] { return text() == QDateTimeEdit::textFromDateTime(dateTime()); };
    if (isWhole() && !lineEdit()->hasSelectedText()) {
        setSelectedSection(currentSection());
    }
    QDateTimeEdit::keyPressEvent(digit);
    if (isWhole() && typedDay_ > 0) {
        setDay(typedDay_);
    }
}

void DateTimeEdit::typeDay(int digit) {
    const bool isSecond = firstDigit_.has_value();
    const int day = firstDigit_.value_or(0) * 10 + digit;
    if (day > 31 || (isSecond && day == 0)) {
        return;
    }
    typedDay_ = day;
    if (day > 0) {
        setDay(day);
    }
    const bool isWhole = isSecond || day > 3;
    setSelectedSection(isWhole ? sectionAt(currentSectionIndex() + 1) : DaySection);
    if (!isWhole) {
        firstDigit_ = digit;
    }
}

/// Sets the day, cut to the month's last, and selects the section that was selected.
void DateTimeEdit::setDay(int day) {
    const QDate shown = date();
    const QDate wanted(shown.year(), shown.month(), std::min(day, shown.daysInMonth()));
    if (wanted != shown) {
        const Section section = currentSection();
        setDate(wanted);
        setSelectedSection(section);
    }
}

/// Its parts are walked through by the arrow keys.
bool DateTimeEdit::focusNextPrevChild(bool next) {
    // Past Qt's own, which goes from part to part.
    return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace kvex::qt
