#include "adapters/qt/DateTimeEdit.h"

#include "adapters/controls/PickerValue.h"
#include "adapters/qt/TypedKey.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTextCharFormat>

#include <algorithm>
#include <utility>

namespace kvex::qt {
namespace {

const QString wholeYear = QStringLiteral("yyyy");

/// To Qt "yyy" is a year of two digits, and a "y" behind it.
QString withWholeYear(QString format) {
    static const QRegularExpression year(QStringLiteral("y{3,}"));
    return format.replace(year, wholeYear);
}

constexpr int noDigit = -1;

/// Of whatever script.
int digitOf(const QKeyEvent &event) {
    return isTyping(event) && event.text().size() == 1 ? event.text().front().digitValue()
                                                       : noDigit;
}

/// Whatever the format has between its parts: people write dates in many ways.
bool isSeparator(const QKeyEvent &event) {
    return isTyping(event) && QStringLiteral("/.-:, ").contains(event.text());
}

struct Range {
    int least;
    int most;
};

/// What a part of two digits may hold, whatever the others do.
Range rangeOf(QDateTimeEdit::Section part) {
    switch (part) {
    case QDateTimeEdit::DaySection:
        return {1, 31};
    case QDateTimeEdit::MonthSection:
        return {1, 12};
    case QDateTimeEdit::HourSection:
        return {0, 23};
    default:
        return {0, 59};
    }
}

} // namespace

DateTimeEdit::DateTimeEdit(QWidget *parent, const QString &format) : QDateTimeEdit(parent) {
    setTimeSpec(Qt::UTC);
    // In every language the digits that keyboards type.
    setLocale(QLocale::c());
    setDisplayFormat(withWholeYear(format));
    setDateTimeRange({{controls::PickerValue::firstYear, 1, 1}, {0, 0}, Qt::UTC},
                     {{controls::PickerValue::lastYear, 12, 31}, {23, 59, 59, 999}, Qt::UTC});
    const bool showsDate = (displayedSections() & DateSections_Mask) != NoSection;
    setCalendarPopup(showsDate);
    connect(lineEdit(), &QLineEdit::cursorPositionChanged, this, [this] { firstDigit_.reset(); });
    if (showsDate) {
        QCalendarWidget &calendar = *calendarWidget();
        calendar.setLocale(QLocale());
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
    if (wholeValue(text).isValid()) {
        return QValidator::Acceptable;
    }
    return isYearBegun(text) ? QValidator::Intermediate : QDateTimeEdit::validate(text, position);
}

/// Whether only the end of the year is missing, be it that of no year in range.
bool DateTimeEdit::isYearBegun(const QString &text) const {
    const qsizetype at = displayFormat().indexOf(wholeYear);
    if (at < 0 || text.size() >= displayFormat().size()) {
        return false;
    }
    const QString shown = QDateTimeEdit::textFromDateTime(dateTime());
    const QString after = shown.mid(at + wholeYear.size());
    return text.startsWith(shown.left(at)) && text.endsWith(after) &&
           std::all_of(text.begin() + at, text.end() - after.size(),
                       [](QChar unit) { return unit.isDigit(); });
}

QDateTime DateTimeEdit::dateTimeFromText(const QString &text) const {
    const QDateTime value = wholeValue(text);
    return value.isValid() ? value : QDateTimeEdit::dateTimeFromText(text);
}

void DateTimeEdit::keyPressEvent(QKeyEvent *event) {
    const bool isAllSelected = !text().isEmpty() && lineEdit()->selectedText() == text();
    const int digit = digitOf(*event);
    const bool deletes = event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete;
    if (isAllSelected && (digit != noDigit || deletes)) {
        interpretText();
        setSelectedSection(sectionAt(0));
    }
    const bool hadEndedPart = std::exchange(digitEndedPart_, false);
    const bool isByWord = event->modifiers() == Qt::ControlModifier;
    if (digit != noDigit) {
        typeDigit(digit);
    } else if (isSeparator(*event)) {
        // What the last digit ended is not to be ended again.
        goToPart(hadEndedPart ? 0 : 1);
    } else if (isByWord && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)) {
        goToPart(event->key() == Qt::Key_Right ? 1 : -1);
    } else if (!(isAllSelected && deletes)) {
        QDateTimeEdit::keyPressEvent(event);
    }
}

/// What is typed so far counts.
void DateTimeEdit::goToPart(int step) {
    const int part = std::clamp(currentSectionIndex() + step, 0, sectionCount() - 1);
    interpretText();
    setSelectedSection(sectionAt(part));
}

/// A day may be typed before its month, whatever month is shown: the month and the year typed
/// after it bring it back as far as they have it.
void DateTimeEdit::typeDigit(int digit) {
    if (date() != typedDate_) {
        typedDay_ = 0;
    }
    if (currentSection() == YearSection) {
        typeIntoYear(digit);
    } else {
        typeIntoPart(digit);
    }
    typedDate_ = date();
}

/// Into a year that is whole Qt takes a digit only when the year is selected.
void DateTimeEdit::typeIntoYear(int digit) {
    const auto isWhole = [this] { return text() == QDateTimeEdit::textFromDateTime(dateTime()); };
    if (isWhole()) {
        setSelectedSection(YearSection);
    }
    QKeyEvent typed(QEvent::KeyPress, Qt::Key_0 + digit, Qt::NoModifier, QString::number(digit));
    QDateTimeEdit::keyPressEvent(&typed);
    if (isWhole() && typedDay_ > 0) {
        setPart(DaySection, typedDay_);
    }
}

/// A part of two digits.
void DateTimeEdit::typeIntoPart(int digit) {
    const Section part = currentSection();
    const auto [least, most] = rangeOf(part);
    const bool isSecond = firstDigit_.has_value();
    const int value = firstDigit_.value_or(0) * 10 + digit;
    if (value > most || (isSecond && value < least)) {
        return;
    }
    if (part == DaySection) {
        typedDay_ = value;
    }
    if (value >= least) {
        setPart(part, value);
    }
    digitEndedPart_ = isSecond || value * 10 > most;
    const bool hasNext = currentSectionIndex() + 1 < sectionCount();
    setSelectedSection(digitEndedPart_ && hasNext ? sectionAt(currentSectionIndex() + 1) : part);
    firstDigit_ = digitEndedPart_ ? std::nullopt : std::optional(digit);
}

/// The day is cut to the month's last. The section that was selected stays so.
void DateTimeEdit::setPart(Section part, int value) {
    const Section section = currentSection();
    if (part == DaySection || part == MonthSection) {
        const QDate first(date().year(), part == MonthSection ? value : date().month(), 1);
        const int dayOfMonth = typedDay_ > 0 ? typedDay_ : date().day();
        const int day = part == DaySection ? value : dayOfMonth;
        setDate(first.addDays(std::min(day, first.daysInMonth()) - 1));
    } else {
        setTime(QTime(part == HourSection ? value : time().hour(),
                      part == MinuteSection ? value : time().minute(),
                      part == SecondSection ? value : time().second()));
    }
    setSelectedSection(section);
}

/// Its parts are walked through by the arrow keys.
bool DateTimeEdit::focusNextPrevChild(bool next) {
    // Past Qt's own, which goes from part to part.
    return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace kvex::qt
